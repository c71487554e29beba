#include "model/EmojiSequences.h"

#include <gtest/gtest.h>

#include <string>

namespace korvane {
namespace {

    using Places = std::vector<EmojiPlace>;

    std::vector<std::u16string> emojiOf(std::u16string_view text)
    {
        std::vector<std::u16string> found;
        for (const auto& place : emojiSequences(text))
            found.emplace_back(text.substr(place.begin, place.end - place.begin));
        return found;
    }

    TEST(EmojiSequencesTest, TextsWithoutEmojiHaveNone)
    {
        for (const auto* text : { u"", u"a plain text, 123 #", u"剪贴板", u"שלום", u"© ™ ♥ ☎ ✂",
                 u"क्‍ष", u"👍︎" })
            EXPECT_EQ(emojiSequences(text), Places {}) << std::u16string_view(text).size();
    }

    TEST(EmojiSequencesTest, EachIsOneHoweverManyCodePointsItTakes)
    {
        for (const auto* text : { u"😀", u"👍🏽", u"☕", u"❤️", u"☺️", u"1️⃣", u"🇩🇪",
                 u"🏴󠁧󠁢󠁥󠁮󠁧󠁿", u"👩‍👩‍👧‍👦", u"🏳️‍🌈",
                 u"🏃‍♀️", u"👩‍❤️‍👨", u"👁️‍🗨️", u"🏳‍🌈",
                 u"☝🏽", u"⛹🏽‍♀️", u"🕵🏿‍♂️" })
            EXPECT_EQ(emojiSequences(text), (Places { { 0, std::u16string_view(text).size() } }))
                << std::u16string_view(text).size();
    }

    TEST(EmojiSequencesTest, TheyAreFoundBetweenOtherCharacters)
    {
        EXPECT_EQ(emojiSequences(u"a😀b ❤️"), (Places { { 1, 3 }, { 5, 7 } }));
        EXPECT_EQ(emojiOf(u"剪🇩🇪🇫🇷😀😀"), (std::vector<std::u16string> { u"🇩🇪", u"🇫🇷", u"😀", u"😀" }));
    }

    TEST(EmojiSequencesTest, ALoneSurrogateIsNone)
    {
        const std::u16string text { u'a', char16_t(0xD83D), u'b', char16_t(0xFE0F) };
        EXPECT_EQ(emojiSequences(text), Places {});
    }

} // namespace
} // namespace korvane
