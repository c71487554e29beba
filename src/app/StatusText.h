#pragma once

#include "app/Windows.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// The texts of the status item.
namespace statustext {
    inline constexpr std::string_view image = "doc.on.clipboard";
    inline constexpr std::string_view privateImage = "lock.doc";

    /// A blank and the number of clips, or nothing.
    std::string title(bool showsCount, std::size_t clipCount);

    struct MenuActions {
        std::function<void()> togglePrivateMode;
        std::function<void()> openPreferences;
        std::function<void()> checkForUpdates;
        std::function<void()> openMakersPage;
        std::function<void()> quit;
    };

    /// The menu of a right click, made anew for each.
    std::vector<MenuItem> menu(bool isPrivate, const MenuActions& actions);
} // namespace statustext

} // namespace korvane
