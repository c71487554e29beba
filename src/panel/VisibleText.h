#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvane {

// What the panel's rows and its preview do alike to show a text as it is.

/// Whether a line ends with this code point: a line feed, a carriage return, and the separators of
/// Unicode (UAX #14, mandatory breaks).
bool isLineEnd(char32_t value);

/// Appends what stands for a character that has no look of its own: control characters are written
/// as terminals do, "^[" for Escape, as few fonts have pictures of them (U+2400 and following), and
/// those of the upper half as U+FFFD. Overrides of the direction, with which a file name can be made
/// to look like another one, are written out as "<U+202E>". Every other stays as it is.
void appendVisibly(std::string& text, char32_t value);

/// Whether there is nothing to see in a text: white space, and characters without a look of their own.
bool showsNothing(std::string_view text);
/// Appends such a character made visible: white space as proof-readers write it, ↵, ⇥ or ␣, and any
/// other by its number.
void appendInvisible(std::string& text, char32_t value);

/// How many bytes of a text are shown: whole characters, at most `maxBytes` bytes and no further
/// than the line feed number `maxLines`. Where a single character is longer than that all by itself,
/// a few of its code points: a letter with thousands of marks on it is a tower that no line has room
/// for.
std::size_t shownBytes(std::string_view text, int maxLines, int maxBytes);

} // namespace korvane
