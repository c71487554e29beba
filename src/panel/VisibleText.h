#pragma once

#include <cstddef>
#include <string_view>

namespace korvane {

// What the panel's rows and its preview do alike to show a text as it is.

/// Whether a line ends with this code point: a line feed, a carriage return, and the separators of
/// Unicode (UAX #14, mandatory breaks).
bool isLineEnd(char32_t value);

/// The character that stands for one that has no look of its own: control characters get their
/// pictures (U+2400 and following), or U+FFFD where there is none. Every other stays as it is.
char32_t visibleForm(char32_t value);

/// White space made visible as proof-readers write it: ↵, ⇥ or ␣.
char32_t visibleBlank(char32_t value);

/// How many bytes of a text are shown: whole characters, at most `maxBytes` bytes and no further
/// than the line feed number `maxLines`. Where a single character is longer than that all by itself,
/// a few of its code points: a letter with thousands of marks on it is a tower that no line has room
/// for.
std::size_t shownBytes(std::string_view text, int maxLines, int maxBytes);

} // namespace korvane
