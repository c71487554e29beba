#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace korvane {

/// The file of this machine that a "file:" URI names (RFC 8089), byte for byte: a name need not be UTF-8. None for
/// every other URI, one of another machine included.
std::optional<std::filesystem::path> fileOf(std::string_view uri);

} // namespace korvane
