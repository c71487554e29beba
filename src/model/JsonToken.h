#pragma once

#include <string_view>

namespace korvane {

/// Whether a token of a JSON document (RFC 8259) is a number, of whatever size, or one of the words
/// true, false and null. White space that follows the token may still be attached to it.
bool isJsonScalar(std::string_view token);

} // namespace korvane
