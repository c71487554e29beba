#include "panel/ApplicationMenu.h"

namespace korvane::applicationmenu {

std::vector<Item> items()
{
    return {
        { preferencesTitle, Action::openPreferences },
        {},
        { checkForUpdatesTitle, Action::checkForUpdates },
        {},
        { makersPageTitle, Action::openMakersPage },
        {},
        { quitTitle, Action::quit },
    };
}

} // namespace korvane::applicationmenu
