#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace korvane {

/// The commands that concern the whole program, wherever they are offered: in the panel's menu and in
/// the status item's.
namespace applicationmenu {
    inline constexpr std::string_view preferencesTitle = "Preferences...";
    inline constexpr std::string_view checkForUpdatesTitle = "Check for Updates...";
    inline constexpr std::string_view makersPageTitle = "More from the Makers of Korvane";
    inline constexpr std::string_view quitTitle = "Quit Korvane";

    enum class Action { openPreferences, checkForUpdates, openMakersPage, quit };
    /// One line of the panel's menu; without an action it is a divider.
    struct Item {
        std::string_view title;
        std::optional<Action> action;
    };
    /// The panel's menu, with a divider between each pair.
    std::vector<Item> items();
} // namespace applicationmenu

} // namespace korvane
