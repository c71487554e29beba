#include "update/VersionOrder.h"

#include <gtest/gtest.h>

#include <compare>
#include <string>

namespace korvane {
namespace {

    void expectGreater(std::string_view a, std::string_view b)
    {
        EXPECT_TRUE(std::is_gt(compareVersions(a, b))) << a << " and " << b;
        EXPECT_TRUE(std::is_lt(compareVersions(b, a))) << b << " and " << a;
    }

    void expectSame(std::string_view a, std::string_view b)
    {
        EXPECT_TRUE(std::is_eq(compareVersions(a, b))) << a << " and " << b;
        EXPECT_TRUE(std::is_eq(compareVersions(b, a))) << b << " and " << a;
    }

    TEST(VersionOrderTest, NumbersCountByTheirValue)
    {
        expectGreater("1.10", "1.9");
        expectGreater("1.2.10", "1.2.9");
        expectGreater("10", "9.9");
        expectGreater("1.2", "1.1");
    }

    TEST(VersionOrderTest, EqualTextsAreTheSame)
    {
        expectSame("1.2", "1.2");
        expectSame("", "");
    }

    TEST(VersionOrderTest, ZerosAtTheBeginningOfANumberDoNotCount)
    {
        expectSame("1.02", "1.2");
        expectSame("1.0", "1.000");
        expectGreater("1.02", "1.1");
        expectGreater("1.010", "1.9");
    }

    TEST(VersionOrderTest, WhatGoesOnIsGreater)
    {
        expectGreater("1.2.0", "1.2");
        expectGreater("1.2.", "1.2");
        expectGreater("1", "");
        expectGreater("0", "");
    }

    TEST(VersionOrderTest, OtherCharactersCountByTheirCodePoint)
    {
        expectGreater("1.2b1", "1.2.0");
        expectGreater("1.2b", "1.2B");
        expectGreater("1.2.0", "1.2-1");
        expectGreater("v1", "1");
        expectGreater("1.é", "1.z");
        expectGreater("1.\U0001F600", "1.\uFFFD");
    }

    TEST(VersionOrderTest, ADigitThatIsNotAsciiIsNoNumber)
    {
        // Arabic-Indic 1 and 0 against 9: as numbers they would be 10 and 9 of one kind.
        expectGreater("\u0669", "\u0661\u0660");
    }

    TEST(VersionOrderTest, NumbersOfAnyLengthAreCompared)
    {
        const std::string many(40, '9');
        expectGreater("1" + std::string(40, '0'), many);
        expectGreater(many, many.substr(1));
    }

} // namespace
} // namespace korvane
