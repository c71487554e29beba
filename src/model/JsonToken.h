#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace korvane {

/// Tokens of JSON (RFC 8259) other than texts, as they stand in a document; white space that
/// follows a token may still be attached to it.

/// A number without fraction and exponent that a signed 64-bit integer holds; "-0" is 0.
std::optional<std::int64_t> jsonInteger(std::string_view token);
std::optional<bool> jsonBoolean(std::string_view token);
bool isJsonNull(std::string_view token);
/// A number of any size, or one of the words true, false and null.
bool isJsonScalar(std::string_view token);
/// The token without the white space behind it.
std::string_view bareToken(std::string_view token);

} // namespace korvane
