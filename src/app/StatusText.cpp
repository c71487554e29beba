#include "app/StatusText.h"

namespace korvane::statustext {

std::string title(bool showsCount, std::size_t clipCount)
{
    return showsCount ? " " + std::to_string(clipCount) : std::string();
}

std::vector<MenuItem> menu(bool isPrivate, const MenuActions& actions)
{
    return {
        // Three blanks are as wide as the check mark, so that the text stays where it is.
        { isPrivate ? "✓ Private Mode" : "   Private Mode", "", actions.togglePrivateMode },
        {},
        { "Preferences...", ",", actions.openPreferences },
        { "Check for Updates...", "", actions.checkForUpdates },
        { std::string(makersPageTitle), "", actions.openMakersPage },
        {},
        { "Quit Korvane", "q", actions.quit },
    };
}

} // namespace korvane::statustext
