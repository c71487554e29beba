#pragma once

#include <cstddef>
#include <string_view>

namespace korvane {

/// Where `needle` next occurs in `text` at or after `from`, byte for byte; npos when it does not. An
/// empty needle occurs everywhere. It runs at several gigabytes a second on ordinary text, and its
/// time is linear in the sizes on any text.
std::size_t findBytes(std::string_view text, std::string_view needle, std::size_t from = 0);

/// Where the run of ASCII characters that begins at `from` ends: the index of the next byte above
/// 0x7F, or the size of the text.
std::size_t endOfAscii(std::string_view text, std::size_t from = 0);

/// Where the run of ASCII white space that `text` begins with ends: the index of the first other byte,
/// or the size of the text.
std::size_t endOfAsciiBlanks(std::string_view text);
/// Where the run of ASCII white space that `text` ends with begins; 0 when there is nothing else.
std::size_t beginOfAsciiBlanks(std::string_view text);

/// Makes the letters A to Z of these bytes small; bytes above 0x7F stay as they are.
void lowerAscii(char* bytes, std::size_t count);

} // namespace korvane
