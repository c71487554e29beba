#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvane {

// What the program asks of Unicode text. Texts are UTF-8; "characters" are those that a user sees
// (extended grapheme clusters, UAX #29). Only the functions that say so expect ill-formed text, but
// none of them fails on it.

/// Without the white space at both ends: every character with the property White_Space, line breaks
/// included.
std::string_view trimmed(std::string_view utf8);
/// Nothing, or nothing but white space.
bool isBlank(std::string_view utf8);

/// Whether a code point has no look of its own unless it changes its neighbours': joiners, variation
/// selectors, marks of direction and the like (the property Default_Ignorable_Code_Point).
bool isIgnorable(char32_t codePoint);

bool isValidUtf8(std::string_view bytes);
/// Each ill-formed piece becomes one U+FFFD (the Unicode Standard's "maximal subpart", section 3.9),
/// and NULs are dropped. Text in which nothing is wrong is handed back without being copied.
std::string repairedUtf8(std::string bytes);
/// Text in ISO 8859-1, without its NULs.
std::string utf8FromLatin1(std::string_view latin1);

/// Whether both are the same text but for canonical equivalence (UAX #15): "é" is one text, whether
/// it is one code point or two. Letter case matters.
bool canonicallyEqual(std::string_view a, std::string_view b);

/// In capital letters, by the rules that all languages share ("ß" becomes "SS", "i" becomes "I").
std::string upperCased(std::string_view utf8);

/// The number of characters, counted no further than the limit.
std::size_t characterCount(std::string_view utf8, std::size_t limit);
/// Whether the literal text `word` occurs with a word boundary on both sides, as the regular
/// expression "\b…\b" of ICU finds it (UTS #18, level 1): marks and format characters belong to what
/// they follow, and there is a boundary wherever a word character meets another one.
bool containsWord(std::string_view utf8, std::string_view word);

/// The beginning of a text: whole characters, at most `maxBytes` bytes, and no further than the
/// line feed number `maxLines` (at least the first), which is kept. A line that ends with a carriage
/// return and a line feed does not count, deliberately: the two are one character. The text must be
/// well-formed; the time does not depend on its size.
std::string overflowPreview(std::string_view text, int maxLines, int maxBytes);

} // namespace korvane
