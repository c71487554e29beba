#include "model/Text.h"

#include "model/RandomText.h"

#include <gtest/gtest.h>

#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

#include <string>

namespace korvane {
namespace {

    TEST(TextTest, TrimsEveryCharacterOfWhiteSpaceFromBothEnds)
    {
        const std::vector<std::string> white { "\t", "\n", "\v", "\f", "\r", " ", "\u0085",
            "\u00A0", "\u1680", "\u2000", "\u2001", "\u2002", "\u2003", "\u2004", "\u2005",
            "\u2006", "\u2007", "\u2008", "\u2009", "\u200A", "\u2028", "\u2029", "\u202F",
            "\u205F", "\u3000" };
        ASSERT_EQ(white.size(), 25U);
        for (const auto& each : white) {
            const auto inner = std::string("a").append(each).append("b");
            EXPECT_EQ(trimmed(std::string(each).append(inner).append(each)), inner);
            EXPECT_TRUE(isBlank(each));
        }
        EXPECT_TRUE(isBlank(""));
        EXPECT_TRUE(isBlank(" \r\n\u3000\t"));
    }

    TEST(TextTest, TrimsNoInvisibleCharacterThatIsNotWhiteSpace)
    {
        for (const std::string each :
            { "\u200B", "\u200D", "\uFEFF", "\u2060", "\u180E", "\u0008", "\u001C" }) {
            EXPECT_EQ(trimmed(each), each);
            EXPECT_FALSE(isBlank(each));
        }
        EXPECT_EQ(trimmed(std::string_view("\0 ", 2)), std::string_view("\0", 1));
    }

    TEST(TextTest, TrimsIllFormedTextWithoutHarm)
    {
        EXPECT_EQ(trimmed(" \xE2\x80 "), "\xE2\x80");
        EXPECT_EQ(trimmed(" \x80\x80\x80\x80\x80 "), "\x80\x80\x80\x80\x80");
        EXPECT_EQ(trimmed("\xC2"), "\xC2");
    }

    TEST(TextTest, TellsWellFormedUtf8FromOther)
    {
        EXPECT_TRUE(isValidUtf8(""));
        EXPECT_TRUE(isValidUtf8("a é 中 👍"));
        for (const auto* each : { "\x80", "\xC3", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80",
                 "\xFF", "\xF0\x9F\x91" })
            EXPECT_FALSE(isValidUtf8(each));
    }

    TEST(TextTest, RepairsEachIllFormedPieceByOneReplacementCharacter)
    {
        EXPECT_EQ(repairedUtf8("a\xFFz"), "a\uFFFDz");
        EXPECT_EQ(repairedUtf8("a\xE2\x82z"), "a\uFFFDz");
        EXPECT_EQ(repairedUtf8("\xF0\x9F\x91"), "\uFFFD");
        EXPECT_EQ(repairedUtf8("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");
        EXPECT_EQ(repairedUtf8("\xC0\xAF"), "\uFFFD\uFFFD");
        EXPECT_EQ(repairedUtf8("\xF0\x80\x80\x41"),
            "\uFFFD\uFFFD\uFFFD"
            "A");
    }

    TEST(TextTest, RepairsAnyBytesAsTheLibraryDoes)
    {
        test::RandomText random(1);
        for (int round = 0; round < 20000; ++round) {
            const auto bytes = random.bytes(40);
            std::string expected;
            icu::UnicodeString::fromUTF8(bytes).toUTF8String(expected);
            std::erase(expected, '\0');

            const auto repaired = repairedUtf8(bytes);

            ASSERT_EQ(repaired, expected);
            ASSERT_TRUE(isValidUtf8(repaired));
        }
    }

    TEST(TextTest, DropsNuls)
    {
        EXPECT_EQ(repairedUtf8(std::string("\0a\0\0b\0", 6)), "ab");
        EXPECT_EQ(utf8FromLatin1(std::string_view("\0a\0\xE9\0", 5)), "aé");
    }

    TEST(TextTest, MakesNoCharacterOfBytesThatANulParted)
    {
        EXPECT_EQ(repairedUtf8(std::string("\xE2\x82\0\xAC", 4)), "\uFFFD\uFFFD");
    }

    TEST(TextTest, HandsBackAFaultlessTextWithoutCopyingIt)
    {
        auto text = std::string(10000, 'a') + "é";
        const auto* bytes = text.data();

        const auto repaired = repairedUtf8(std::move(text));

        EXPECT_EQ(static_cast<const void*>(repaired.data()), static_cast<const void*>(bytes));
    }

    TEST(TextTest, ConvertsLatin1)
    {
        std::string all;
        std::string expected;
        for (unsigned value = 1; value < 256; ++value) {
            all.push_back(static_cast<char>(value));
            appendUtf8(expected, value);
        }

        EXPECT_EQ(utf8FromLatin1(all), expected);
        EXPECT_EQ(utf8FromLatin1("plain"), "plain");
        EXPECT_EQ(utf8FromLatin1(""), "");
    }

    TEST(TextTest, FindsCanonicallyEquivalentTextsEqual)
    {
        EXPECT_TRUE(canonicallyEqual("", ""));
        EXPECT_TRUE(canonicallyEqual("café", "cafe\u0301"));
        EXPECT_TRUE(canonicallyEqual("\u1EC7", "e\u0302\u0323"));
        EXPECT_TRUE(canonicallyEqual("a\u0301\u0323b", "a\u0323\u0301b"));
        EXPECT_TRUE(canonicallyEqual("\u212B", "\u00C5"));
        EXPECT_TRUE(canonicallyEqual("각", "\u1100\u1161\u11A8"));
    }

    TEST(TextTest, FindsOtherTextsDifferent)
    {
        EXPECT_FALSE(canonicallyEqual("a", "A"));
        EXPECT_FALSE(canonicallyEqual("a", "ab"));
        EXPECT_FALSE(canonicallyEqual("cafe", "café"));
        EXPECT_FALSE(canonicallyEqual("cafe", "cafe\u0301"));
        EXPECT_FALSE(canonicallyEqual("a\u0301\u0300", "a\u0300\u0301"));
        EXPECT_FALSE(canonicallyEqual("ﬁ", "fi"));
        EXPECT_FALSE(canonicallyEqual("a ", "a"));
        EXPECT_FALSE(canonicallyEqual("ß", "ss"));
    }

    TEST(TextTest, JudgesCanonicalEquivalenceAsTheLibraryDoes)
    {
        const std::vector<std::string> pieces { "a", "e", "é", "e\u0301", "\u0301", "\u0323",
            "\u0345", "각", "\u1100\u1161", "\u11A8", "가", "Å", "\u212B", "中", "\u0F73", "\u0F71",
            "\u0F72" };
        auto error = U_ZERO_ERROR;
        const auto* normalizer = icu::Normalizer2::getNFDInstance(error);
        const auto* composer = icu::Normalizer2::getNFCInstance(error);
        const auto composed = [composer](const std::string& text) {
            auto status = U_ZERO_ERROR;
            std::string result;
            return composer->normalize(icu::UnicodeString::fromUTF8(text), status)
                .toUTF8String(result);
        };
        const auto decomposed = [normalizer](const std::string& text) {
            auto status = U_ZERO_ERROR;
            return normalizer->normalize(icu::UnicodeString::fromUTF8(text), status);
        };
        test::RandomText random(2);
        int equal = 0;
        for (int round = 0; round < 100000; ++round) {
            const auto head = random.from(pieces, 2);
            const auto a = head + random.from(pieces, 3);
            const auto other = head + random.from(pieces, 3);
            const auto b = round % 4 == 0 ? composed(a) : other;
            const auto expected = decomposed(a) == decomposed(b);
            equal += expected && a != b ? 1 : 0;

            ASSERT_EQ(canonicallyEqual(a, b), expected) << a << " and " << b;
        }
        EXPECT_GT(equal, 500); // else the texts put nothing to the test
    }

    TEST(TextTest, CountsCharactersAsAUserSeesThem)
    {
        EXPECT_EQ(characterCount("", 9), 0U);
        EXPECT_EQ(characterCount("abc", 9), 3U);
        EXPECT_EQ(characterCount("e\u0301👨‍👩‍👧🇩🇪\r\n각", 9), 5U);
        EXPECT_EQ(characterCount("abc", 2), 2U);
        EXPECT_EQ(characterCount("abc", 0), 0U);
    }

    TEST(TextTest, FindsAWordOnlyBetweenBoundaries)
    {
        EXPECT_TRUE(containsWord("let", "let"));
        EXPECT_TRUE(containsWord("a let.", "let"));
        EXPECT_TRUE(containsWord("outlet let", "let"));
        EXPECT_FALSE(containsWord("outlet", "let"));
        EXPECT_FALSE(containsWord("letter", "let"));
        EXPECT_FALSE(containsWord("let_", "let"));
        EXPECT_FALSE(containsWord("let\u0301", "let"));
        EXPECT_FALSE(containsWord("élet", "let"));
        EXPECT_FALSE(containsWord("let7", "let"));
        EXPECT_FALSE(containsWord("", "let"));
    }

    TEST(TextTest, LettersOfEveryScriptHaveCapitals)
    {
        EXPECT_EQ(upperCased("a"), "A");
        EXPECT_EQ(upperCased("é"), "É");
        EXPECT_EQ(upperCased("ф"), "Ф");
        EXPECT_EQ(upperCased("ß"), "SS");
        EXPECT_EQ(upperCased("i"), "I");
    }

    TEST(TextTest, WhatHasNoCapitalStaysAsItIs)
    {
        EXPECT_EQ(upperCased(""), "");
        EXPECT_EQ(upperCased("1&あ"), "1&あ");
    }

} // namespace
} // namespace korvane
