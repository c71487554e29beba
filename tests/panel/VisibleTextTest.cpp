#include "panel/VisibleText.h"

#include <gtest/gtest.h>

#include <string>

namespace korvane {
namespace {

    TEST(VisibleTextTest, ALineEndsWithEachOfAsciisLineEndsAndOfUnicodes)
    {
        for (const char32_t value : { U'\n', U'\v', U'\f', U'\r', U'\u0085', U'\u2028', U'\u2029' })
            EXPECT_TRUE(isLineEnd(value)) << static_cast<unsigned>(value);
        for (const char32_t value : { U'\t', U' ', U'a', U'\u001F', U'\u00A0' })
            EXPECT_FALSE(isLineEnd(value)) << static_cast<unsigned>(value);
    }

    TEST(VisibleTextTest, ShownIsAsMuchAsBothBoundsAllow)
    {
        EXPECT_EQ(shownBytes("one\ntwo\nthree", 2, 100), 8U);
        EXPECT_EQ(shownBytes("one\ntwo\nthree", 200, 6), 6U);
        EXPECT_EQ(shownBytes("one\ntwo\nthree", 200, 100), 13U);
        EXPECT_EQ(shownBytes("", 200, 100), 0U);
    }

    TEST(VisibleTextTest, OfACharacterThatIsLongerThanTheBoundAFewCodePointsAreShown)
    {
        const std::string tower = "a\u0301\u0301\u0301\u0301\u0301\u0301\u0301";

        EXPECT_EQ(shownBytes(tower, 200, 8), 11U);
    }

} // namespace
} // namespace korvane
