#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace korvane {

/// Where one emoji stands in a text, in UTF-16 units.
struct EmojiPlace {
    std::size_t begin = 0;
    std::size_t end = 0; ///< the unit after its last one

    friend bool operator==(const EmojiPlace&, const EmojiPlace&) = default;
};

/// The characters (extended grapheme clusters, UAX #29) of a text that are to be shown as one coloured
/// picture each, from the first to the last: what Unicode's UTS #51 calls emoji characters with emoji
/// presentation, emoji presentation sequences, modifier sequences, keycaps, flags and joined sequences. A
/// character that asks to be shown as text (U+FE0E) is none.
/// @param text  need not be well-formed; a lone surrogate is no emoji
std::vector<EmojiPlace> emojiSequences(std::u16string_view text);

} // namespace korvane
