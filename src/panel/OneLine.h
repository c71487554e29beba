#pragma once

#include <string>
#include <string_view>

namespace korvane {

/// How much of a text is shown on one line at most, in bytes: more than any row has room for.
inline constexpr int maxBytesOnOneLine = 800;

/// A text on one line, as its reader wants to see it: the white space at both ends left away, line
/// ends and tabs shown as one blank together with the blanks around them, and what else would be
/// invisible made visible: control characters, and white space where there is nothing else. What is
/// longer than `maxBytesOnOneLine` is cut there, between two characters, and gets "…" at its end; no
/// more than that is laid out, however long the text.
std::string onOneLine(std::string_view text);

} // namespace korvane
