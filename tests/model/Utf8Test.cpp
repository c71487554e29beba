#include "model/Utf8.h"

#include "model/RandomText.h"

#include <gtest/gtest.h>

#include <unicode/unistr.h>

#include <string>

namespace korvane {
namespace {

    // The bytes from which every ill-formed form can be built.
    const std::vector<std::string> pieces { "a", "\x7F", "\x80", "\x8F", "\x90", "\x9F", "\xA0",
        "\xBF", "\xC0", "\xC1", "\xC2", "\xDF", "\xE0", "\xE1", "\xED", "\xEF", "\xF0", "\xF1",
        "\xF4", "\xF5", "\xFF", "é", "中", "👍" };

    TEST(Utf8Test, ReadsForwardAsTheLibraryDoesWhateverTheBytes)
    {
        test::RandomText random(1);
        for (int round = 0; round < 20000; ++round) {
            const auto text = random.from(pieces, 12);
            const auto expected = icu::UnicodeString::fromUTF8(text);
            icu::UnicodeString read;
            for (std::size_t at = 0; at < text.size();) {
                const auto next = codePointAt(text, at);
                read.append(static_cast<UChar32>(next.value));
                at += next.size;
            }

            ASSERT_EQ(read, expected);
        }
    }

    TEST(Utf8Test, ReadsWellFormedTextAlikeInBothDirectionsAndInBothWays)
    {
        test::RandomText random(2);
        for (int round = 0; round < 20000; ++round) {
            const auto text = random.fromAllPlanes(8);
            for (std::size_t at = 0; at < text.size();) {
                const auto read = codePointAt(text, at);
                ASSERT_TRUE(read.isWellFormed);
                const auto quick = codePointOfWellFormed(text, at);
                ASSERT_EQ(quick.value, read.value);
                ASSERT_EQ(quick.size, read.size);
                at += read.size;
                const auto back = codePointBefore(text, at);
                ASSERT_EQ(back.value, read.value);
                ASSERT_EQ(back.size, read.size);
            }
        }
    }

    TEST(Utf8Test, ReadsBackwardThroughIllFormedTextToItsBeginning)
    {
        test::RandomText random(3);
        for (int round = 0; round < 20000; ++round) {
            const auto text = random.from(pieces, 12);
            for (auto at = text.size(); at > 0;) {
                const auto back = codePointBefore(text, at);
                ASSERT_LE(back.size, at);
                ASSERT_GT(back.size, 0U);
                at -= back.size;
            }
        }
    }

    TEST(Utf8Test, WritesEveryCodePointSoThatItReadsBack)
    {
        for (char32_t value = 0; value <= 0x10FFFF; ++value) {
            if (value == 0xD800)
                value = 0xE000;
            std::string text;
            appendUtf8(text, value);
            const auto read = codePointAt(text, 0);
            ASSERT_EQ(read.value, value);
            ASSERT_EQ(read.size, text.size());
            ASSERT_TRUE(read.isWellFormed);
        }
    }

} // namespace
} // namespace korvane
