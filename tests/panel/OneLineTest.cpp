#include "panel/OneLine.h"

#include "model/Text.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    std::string repeated(std::string_view piece, std::size_t times)
    {
        std::string text;
        for (std::size_t i = 0; i < times; ++i)
            text += piece;
        return text;
    }

    TEST(OneLineTest, APlainTextStaysAsItIs)
    {
        EXPECT_EQ(onOneLine("two  blanks, é, 漢字, 👩‍👩‍👧"),
            "two  blanks, é, 漢字, 👩‍👩‍👧");
        EXPECT_EQ(onOneLine(""), "");
    }

    TEST(OneLineTest, WhiteSpaceAtBothEndsIsLeftAway)
    {
        EXPECT_EQ(onOneLine("\n\t  \u00A0first\nlast \r\n"), "first last");
    }

    TEST(OneLineTest, ALineEndIsOneBlankTogetherWithTheIndentAfterIt)
    {
        EXPECT_EQ(onOneLine("if (x) {\r\n\t    return;\r\n}"), "if (x) { return; }");
        EXPECT_EQ(onOneLine("a\n\n\nb"), "a b");
    }

    TEST(OneLineTest, EveryKindOfLineEndIsABlank)
    {
        for (const auto* const end :
            { "\n", "\r", "\r\n", "\v", "\f", "\u0085", "\u2028", "\u2029" })
            EXPECT_EQ(onOneLine(std::string("a") + end + "b"), "a b");
    }

    TEST(OneLineTest, ATabIsABlank)
    {
        EXPECT_EQ(onOneLine("a\tb \t c"), "a b c");
    }

    TEST(OneLineTest, ControlCharactersAreMadeVisible)
    {
        EXPECT_EQ(onOneLine("\x1B[31mred\x07\x7F"), "^[[31mred^G^?");
        EXPECT_EQ(onOneLine("a\u009Bb"), "a\uFFFDb");
        EXPECT_EQ(onOneLine(std::string_view("a\0b", 3)), "a^@b");
    }

    TEST(OneLineTest, CharactersWithoutALookAreWrittenOutWhereThereIsNothingElse)
    {
        EXPECT_EQ(onOneLine("\u200B"), "<U+200B>");
        EXPECT_EQ(onOneLine(" \uFEFF\u00AD"), "␣<U+FEFF><U+00AD>");
        EXPECT_EQ(onOneLine("a\u200Bb"), "a\u200Bb");
    }

    TEST(OneLineTest, AnOverrideOfTheDirectionIsWrittenOut)
    {
        EXPECT_EQ(onOneLine("photo\u202Egpj.exe"), "photo<U+202E>gpj.exe");
        EXPECT_EQ(onOneLine("\u202Aleft\u202C"), "\u202Aleft\u202C"); // what texts really have
    }

    TEST(OneLineTest, WhiteSpaceAloneIsMadeVisible)
    {
        EXPECT_EQ(onOneLine(" \t\n\u00A0"), "␣⇥↵␣");
    }

    TEST(OneLineTest, AMegabyteOnOneLineIsCut)
    {
        const auto line = onOneLine(repeated("word ", 200'000));

        EXPECT_LE(line.size(), maxBytesOnOneLine + std::string_view("…").size());
        EXPECT_TRUE(line.ends_with("…"));
    }

    TEST(OneLineTest, ATextThatJustFitsIsNotCut)
    {
        const auto text = repeated("x", maxBytesOnOneLine);

        EXPECT_EQ(onOneLine(text), text);
        EXPECT_EQ(onOneLine(text + "y"), text + "…");
    }

    TEST(OneLineTest, TheCutStandsBetweenTwoCharacters)
    {
        const auto line = onOneLine("x" + repeated("👩‍👩‍👧", 100));

        ASSERT_TRUE(line.ends_with("👩‍👩‍👧…"));
        EXPECT_EQ(line, "x" + repeated("👩‍👩‍👧", (maxBytesOnOneLine - 1) / 18) + "…");
    }

    TEST(OneLineTest, OfAMillionMarksOnOneLetterAFewAreShown)
    {
        EXPECT_EQ(
            onOneLine("e" + repeated("\u0301", 1'000'000)), "e" + repeated("\u0301", 5) + "…");
    }

    TEST(OneLineTest, AMegabyteOfBlanksIsCutAsWell)
    {
        const auto line = onOneLine(repeated(" ", 1'000'000));

        EXPECT_EQ(line, repeated("␣", maxBytesOnOneLine) + "…");
    }

    TEST(OneLineTest, TextFarBehindBlanksIsFound)
    {
        EXPECT_EQ(onOneLine(repeated(" \n", 10'000) + "text"), "text");
    }

} // namespace
} // namespace korvane
