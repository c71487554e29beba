#include "app/StatusText.h"

#include "panel/ApplicationMenu.h"

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
        { std::string(applicationmenu::preferencesTitle), ",", actions.openPreferences },
        { std::string(applicationmenu::checkForUpdatesTitle), "", actions.checkForUpdates },
        { std::string(applicationmenu::makersPageTitle), "", actions.openMakersPage },
        {},
        { std::string(applicationmenu::quitTitle), "q", actions.quit },
    };
}

} // namespace korvane::statustext
