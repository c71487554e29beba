#pragma once

#include <compare>
#include <string_view>

namespace korvane {

/// Compares two versions as texts in which numbers count by their value: runs of ASCII digits as
/// numbers of any length, whatever zeros they begin with, everything else by code point. What goes
/// on where the other ends is greater. So 1.10 is greater than 1.9, 1.2.0 greater than 1.2, 1.2b1
/// greater than 1.2.0, and 1.02 is the same as 1.2. Both are UTF-8.
std::weak_ordering compareVersions(std::string_view a, std::string_view b);

} // namespace korvane
