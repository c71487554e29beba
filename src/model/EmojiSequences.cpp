#include "model/EmojiSequences.h"

#include <unicode/ubrk.h>
#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <cassert>
#include <cstdint>
#include <memory>

namespace korvane {
namespace {

    constexpr UChar32 textStyle = 0xFE0E;
    constexpr UChar32 emojiStyle = 0xFE0F;
    constexpr UChar32 joiner = 0x200D;

    UChar32 codePointAt(std::u16string_view text, std::size_t& at)
    {
        UChar32 value = 0;
        U16_NEXT(text.data(), at, text.size(), value);
        return value;
    }

    /// Whether a code point can be what makes a character an emoji. Most texts hold none, and then
    /// nobody has to look for their characters.
    bool isTelling(UChar32 value)
    {
        return value == emojiStyle || value == joiner
            || (value >= 0x231A && u_hasBinaryProperty(value, UCHAR_EMOJI_PRESENTATION) != 0);
    }

    bool isEmoji(std::u16string_view character)
    {
        std::size_t at = 0;
        const auto first = codePointAt(character, at);
        if (u_hasBinaryProperty(first, UCHAR_EMOJI) == 0)
            return false;
        const bool isPictureAlone = u_hasBinaryProperty(first, UCHAR_EMOJI_PRESENTATION) != 0;
        if (at == character.size())
            return isPictureAlone;
        const auto second = codePointAt(character, at);
        if (second == textStyle)
            return false;
        if (isPictureAlone || second == emojiStyle)
            return true;
        if (u_hasBinaryProperty(second, UCHAR_EMOJI_MODIFIER) != 0)
            return u_hasBinaryProperty(first, UCHAR_EMOJI_MODIFIER_BASE) != 0;
        // Joined, with the sign for a picture left out.
        return second == joiner && at < character.size()
            && u_hasBinaryProperty(codePointAt(character, at), UCHAR_EXTENDED_PICTOGRAPHIC) != 0;
    }

    struct CloseBreaks {
        void operator()(UBreakIterator* breaks) const { ubrk_close(breaks); }
    };

} // namespace

std::vector<EmojiPlace> emojiSequences(std::u16string_view text)
{
    std::size_t at = 0;
    bool mayHoldSome = false;
    while (at < text.size() && !mayHoldSome)
        mayHoldSome = isTelling(codePointAt(text, at));
    if (!mayHoldSome)
        return {};

    auto error = U_ZERO_ERROR;
    const std::unique_ptr<UBreakIterator, CloseBreaks> breaks(
        ubrk_open(UBRK_CHARACTER, "", text.data(), static_cast<std::int32_t>(text.size()), &error));
    assert(U_SUCCESS(error)); // the rules are compiled into the library

    std::vector<EmojiPlace> found;
    auto begin = static_cast<std::size_t>(ubrk_first(breaks.get()));
    for (auto next = ubrk_next(breaks.get()); next != UBRK_DONE; next = ubrk_next(breaks.get())) {
        const auto end = static_cast<std::size_t>(next);
        if (isEmoji(text.substr(begin, end - begin)))
            found.push_back({ begin, end });
        begin = end;
    }
    return found;
}

} // namespace korvane
