#include "panel/PreviewText.h"

#include "model/ClipItem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>

namespace korvane {
namespace {

    PreviewText previewOf(std::string text, ClipType type = ClipType::plainText)
    {
        ClipItem clip;
        clip.text = std::move(text);
        clip.type = type;
        return previewText(clip);
    }

    TEST(PreviewTextTest, AShortTextStaysAsItIs)
    {
        const auto* const text = "two  blanks,\n\n\té, 漢字, שלום, 👩‍👩‍👧\n";

        EXPECT_EQ(previewOf(text).text, text);
        EXPECT_FALSE(previewOf(text).isCut);
    }

    TEST(PreviewTextTest, AVeryLongClipIsCutTo200Lines)
    {
        std::string text;
        for (int line = 1; line <= 201; ++line)
            text += std::to_string(line) + "\n";

        const auto preview = previewOf(text);

        EXPECT_EQ(std::ranges::count(preview.text, '\n'), 200);
        EXPECT_TRUE(preview.text.ends_with("\n200\n"));
        EXPECT_TRUE(preview.isCut);
    }

    TEST(PreviewTextTest, ATextOf200LinesIsWhole)
    {
        std::string text;
        for (int line = 1; line <= 200; ++line)
            text += "x\n";

        EXPECT_EQ(previewOf(text).text, text);
        EXPECT_FALSE(previewOf(text).isCut);
    }

    TEST(PreviewTextTest, AVeryLongClipIsCutTo16384Bytes)
    {
        EXPECT_EQ(previewOf(std::string(1'000'000, 'x')).text, std::string(16384, 'x'));
        EXPECT_TRUE(previewOf(std::string(16385, 'x')).isCut);
        EXPECT_FALSE(previewOf(std::string(16384, 'x')).isCut);
    }

    TEST(PreviewTextTest, NoCharacterIsCutInTwo)
    {
        const auto preview = previewOf(std::string(16383, 'x') + "é and more");

        EXPECT_EQ(preview.text, std::string(16383, 'x'));
        EXPECT_TRUE(preview.isCut);
    }

    TEST(PreviewTextTest, OfALargeClipTheStoredBeginningIsShownAndTheFileIsNotRead)
    {
        ClipItem clip;
        clip.text = "the beginning\n";
        clip.isOverflow = true;
        clip.overflowPath = "/there/is/no/such/file.txt";
        clip.overflowByteCount = 1'000'000;

        const auto preview = previewText(clip);

        EXPECT_EQ(preview.text, "the beginning\n");
        EXPECT_TRUE(preview.isCut);
    }

    TEST(PreviewTextTest, ACodeClipIsCodeAndEveryOtherIsNot)
    {
        for (const auto type : allClipTypes)
            EXPECT_EQ(previewOf("text", type).isCode, type == ClipType::code) << rawValue(type);
    }

    TEST(PreviewTextTest, EveryKindOfLineEndIsALineFeed)
    {
        for (const auto* const end :
            { "\n", "\r", "\r\n", "\v", "\f", "\u0085", "\u2028", "\u2029" })
            EXPECT_EQ(previewOf(std::string("a") + end + end + "b").text, "a\n\nb");
    }

    TEST(PreviewTextTest, ControlCharactersAreMadeVisible)
    {
        EXPECT_EQ(previewOf("\x1B[31mred\x07\x7F").text, "^[[31mred^G^?");
        EXPECT_EQ(previewOf("a\u009Bb").text, "a\uFFFDb");
    }

    TEST(PreviewTextTest, WhiteSpaceAloneIsMadeVisible)
    {
        EXPECT_EQ(previewOf(" \t\r\n\u00A0").text, "␣⇥↵\n␣");
    }

    TEST(PreviewTextTest, OfALetterWithThousandsOfMarksAFewAreShown)
    {
        std::string tower = "a";
        for (int mark = 0; mark < 10000; ++mark)
            tower += "\u0301";

        const auto preview = previewOf(tower);

        EXPECT_EQ(preview.text, "a\u0301\u0301\u0301\u0301\u0301");
        EXPECT_TRUE(preview.isCut);
    }

    TEST(PreviewTextTest, AnEmptyTextIsEmpty)
    {
        EXPECT_EQ(previewOf("").text, "");
        EXPECT_FALSE(previewOf("").isCut);
    }

    TEST(PreviewTextTest, CharactersWithoutALookAreWrittenOutWhereThereIsNothingElse)
    {
        EXPECT_EQ(previewOf("\u2060\n\u200D").text, "<U+2060>↵\n<U+200D>");
        EXPECT_EQ(previewOf("a\u202Eb").text, "a<U+202E>b");
    }

} // namespace
} // namespace korvane
