#pragma once

#include "model/FilterTab.h"

#include <optional>
#include <string>
#include <string_view>

namespace korvane {

/// What is said where the list has no row.
struct EmptyList {
    /// None: the tab's own.
    std::optional<std::string_view> symbol;
    std::string title;
    /// What the user can do about it.
    std::string hint;
};

/// @param isHistoryEmpty  there is no clip at all
/// @param isPrivate       nothing is recorded at present
EmptyList emptyList(bool isHistoryEmpty, bool isPrivate, FilterTab tab, std::string_view search);

} // namespace korvane
