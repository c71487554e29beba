#include "model/Text.h"

#include "model/RandomText.h"

#include <gtest/gtest.h>

#include <unicode/brkiter.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace korvane {
namespace {

    std::string repeated(const std::string& piece, std::size_t times)
    {
        std::string text;
        for (; times > 0; --times)
            text += piece;
        return text;
    }

    std::unique_ptr<icu::BreakIterator> characterBreaks()
    {
        auto error = U_ZERO_ERROR;
        return std::unique_ptr<icu::BreakIterator>(
            icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), error));
    }

    std::vector<std::string> characters(const std::string& utf8)
    {
        const auto text = icu::UnicodeString::fromUTF8(utf8);
        const auto breaks = characterBreaks();
        breaks->setText(text);
        std::vector<std::string> result;
        for (auto from = breaks->first(), to = breaks->next(); to != icu::BreakIterator::DONE;
             from = to, to = breaks->next())
            text.tempSubStringBetween(from, to).toUTF8String(result.emplace_back());
        return result;
    }

    // The rule, character by character.
    std::string previewByTheRule(const std::string& text, int maxLines, int maxBytes)
    {
        std::string preview;
        int lines = 0;
        for (const auto& character : characters(text)) {
            if (preview.size() + character.size() > static_cast<std::size_t>(std::max(maxBytes, 0)))
                break;
            preview += character;
            if (character == "\n" && ++lines == std::max(maxLines, 1))
                break;
        }
        return preview;
    }

    TEST(OverflowPreviewTest, PreviewsFortyLinesByTheFirstThirtyWithTheirLineFeed)
    {
        const auto preview = overflowPreview(repeated("short\n", 40), 30, 4096);

        EXPECT_EQ(preview, repeated("short\n", 30));
    }

    TEST(OverflowPreviewTest, PreviewsTextWithoutLineFeedsByWholeCharactersOnly)
    {
        for (const std::string character :
            { "a", "é", "中", "👍", "👨‍👩‍👧", "e\u0301" }) {
            const auto preview = overflowPreview(repeated(character, 5000), 30, 4096);

            EXPECT_EQ(preview, repeated(character, 4096 / character.size())) << character;
        }
    }

    TEST(OverflowPreviewTest, PreviewsAHundredKibibytesByThirtyLinesOr4096Bytes)
    {
        EXPECT_EQ(overflowPreview(std::string(102400, 'x'), 30, 4096).size(), 4096U);
        EXPECT_EQ(overflowPreview(repeated("x\n", 51200), 30, 4096).size(), 60U);
    }

    TEST(OverflowPreviewTest, CutsLinesThatEndInCarriageReturnAndLineFeedByTheBytesAlone)
    {
        const auto text = repeated("line\r\n", 1000);

        EXPECT_EQ(overflowPreview(text, 30, 4096), repeated("line\r\n", 682) + "line");
        EXPECT_EQ(overflowPreview(text, 30, 4097), repeated("line\r\n", 682) + "line");
        EXPECT_EQ(overflowPreview(text, 30, 4098), repeated("line\r\n", 683));
    }

    TEST(OverflowPreviewTest, PreviewsOneLineAtLeast)
    {
        EXPECT_EQ(overflowPreview("a\nb\n", 0, 100), "a\n");
        EXPECT_EQ(overflowPreview("a\nb\n", -5, 100), "a\n");
        EXPECT_EQ(overflowPreview("\n\n", 1, 100), "\n");
    }

    TEST(OverflowPreviewTest, PreviewsNothingWithoutRoom)
    {
        EXPECT_EQ(overflowPreview("abc", 30, 0), "");
        EXPECT_EQ(overflowPreview("abc", 30, -1), "");
        EXPECT_EQ(overflowPreview("中", 30, 2), "");
        EXPECT_EQ(overflowPreview("e" + repeated("\u0301", 5000), 30, 4096), "");
        EXPECT_EQ(overflowPreview("", 30, 4096), "");
    }

    TEST(OverflowPreviewTest, PreviewsAsTheRuleSaysCharacterByCharacter)
    {
        const std::vector<std::string> pieces { "a", "b", "\n", "\r", "\r\n", "é", "e\u0301",
            "\u0301", "\u200D", "👩", "👍\U0001F3FD", "🇩", "🇪", "각", "\u1100", "\u1161", "\u11A8",
            "\u0600", "\u0903", "\uFE0F", "❤", "\u0085", "\u2028", "क्ष", "中" };
        test::RandomText random(3);
        for (int round = 0; round < 50000; ++round) {
            const auto text = random.from(pieces, 40);
            const auto lines = static_cast<int>(random.number(6));
            const auto bytes = static_cast<int>(random.number(100));

            ASSERT_EQ(overflowPreview(text, lines, bytes), previewByTheRule(text, lines, bytes))
                << text << " " << lines << " lines, " << bytes << " bytes";
        }
    }

    TEST(OverflowPreviewTest, PreviewsAHugeTextWithoutReadingOn)
    {
        std::string text;
        text.resize(100'000'000, 'a');
        const auto small = text.substr(0, 10'000);
        const auto fastestOf = [](const std::string& each) {
            auto best = std::chrono::nanoseconds::max();
            for (int round = 0; round < 200; ++round) {
                const auto start = std::chrono::steady_clock::now();
                EXPECT_EQ(overflowPreview(each, 30, 4096).size(), 4096U);
                best = std::min<std::chrono::nanoseconds>(
                    best, std::chrono::steady_clock::now() - start);
            }
            return best;
        };

        EXPECT_LT(fastestOf(text).count(), 10 * fastestOf(small).count());
    }

} // namespace
} // namespace korvane
