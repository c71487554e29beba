#include "model/ByteSearch.h"

#include "model/RandomText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

namespace korvane {
namespace {

    TEST(ByteSearchTest, FindsEveryPlaceThatAPlainSearchFinds)
    {
        test::RandomText random(1);
        const std::vector<std::string> letters { "a", "a", "a", "b", "\xC3", "\xA9" };
        for (int round = 0; round < 20000; ++round) {
            const auto text = random.from(letters, 300);
            const auto needle = random.from(letters, 9);
            const auto from = random.number(text.size() + 2);

            EXPECT_EQ(findBytes(text, needle, from), std::string_view(text).find(needle, from));
        }
    }

    TEST(ByteSearchTest, FindsANeedleThatStandsOnlyAtOnePlace)
    {
        for (std::size_t size = 1; size < 200; ++size) {
            for (std::size_t at = 0; at < size; ++at) {
                std::string text(size, '.');
                text[at] = 'x';

                ASSERT_EQ(findBytes(text, "x"), at);
            }
        }
    }

    TEST(ByteSearchTest, StaysRightWhereTheTextResemblesTheNeedleEverywhere)
    {
        const auto needle = "a" + std::string(50, 'b') + std::string(50, 'a');
        const std::string alike(100000, 'a');

        EXPECT_EQ(findBytes(alike, needle), std::string_view::npos);
        EXPECT_EQ(findBytes(alike + needle + alike, needle), alike.size());
    }

    TEST(ByteSearchTest, FindsNothingPastTheEnd)
    {
        EXPECT_EQ(findBytes("abc", "c", 3), std::string_view::npos);
        EXPECT_EQ(findBytes("abc", "", 3), 3U);
        EXPECT_EQ(findBytes("abc", "", 4), std::string_view::npos);
        EXPECT_EQ(findBytes("", "a"), std::string_view::npos);
    }

    TEST(ByteSearchTest, EndsARunOfAsciiAtTheFirstHigherByte)
    {
        for (std::size_t size = 0; size < 80; ++size) {
            for (std::size_t at = 0; at <= size; ++at) {
                std::string text(size, '\x7F');
                if (at < size)
                    text[at] = '\x80';

                ASSERT_EQ(endOfAscii(text), at);
                ASSERT_EQ(endOfAscii(text, at), at);
            }
        }
    }

    TEST(ByteSearchTest, MakesOnlyTheLettersSmall)
    {
        for (std::size_t offset = 0; offset < 20; ++offset) {
            std::string bytes(offset, '.');
            for (int value = 0; value < 256; ++value)
                bytes.push_back(static_cast<char>(value));
            auto expected = bytes;
            for (char letter = 'A'; letter <= 'Z'; ++letter)
                std::ranges::replace(expected, letter, static_cast<char>(letter - 'A' + 'a'));

            lowerAscii(bytes.data(), bytes.size());

            ASSERT_EQ(bytes, expected);
        }
    }

    TEST(ByteSearchTest, BlanksAreFoundAtBothEndsWhereverTheyStop)
    {
        const std::string blanks = " \t\n\v\f\r ";
        for (std::size_t before = 0; before < 70; ++before) {
            for (const auto* const middle : { "x", "\x08", "\x0E", "\xC2\xA0", "!" }) {
                std::string text;
                for (std::size_t at = 0; at < before; ++at)
                    text += blanks[at % blanks.size()];
                const auto after = std::string(text.rbegin(), text.rend());

                auto whole = text;
                whole.append(middle).append(after);
                EXPECT_EQ(endOfAsciiBlanks(whole), before);
                EXPECT_EQ(beginOfAsciiBlanks(whole), before + std::strlen(middle));
                EXPECT_EQ(endOfAsciiBlanks(text), before);
                EXPECT_EQ(beginOfAsciiBlanks(text), 0U);
            }
        }
    }

} // namespace
} // namespace korvane
