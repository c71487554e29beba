#include "app/view/SettingsPages.h"

#include "look/view/ApplicationIcon.h"
#include "settings/view/AboutPage.h"
#include "settings/view/DataPage.h"
#include "settings/view/GeneralPage.h"
#include "settings/view/HelpPage.h"
#include "settings/view/LimitRows.h"
#include "settings/view/PreferencesView.h"
#include "settings/view/PrivacyPage.h"
#include "settings/view/ShortcutsPage.h"

namespace korvane {

namespace {
    constexpr std::string_view runningVersion = KORVANE_VERSION;
} // namespace

void addSettingsPages(PreferencesView& view, const SettingsSubjects& subjects,
    const SettingsWindow::World& world, Symbols& symbols)
{
    const ControlKit kit { world.loop, symbols, world.clipboardText };
    view.setPage(SettingsTab::general,
        std::make_unique<GeneralPage>(kit,
            GeneralPage::World { world.preferences, world.sounds, world.loginItem, world.output,
                [kit, &limits = subjects.limits](
                    FormSection& section) { addLimitRows(section, kit, limits); } }));
    view.setPage(SettingsTab::shortcuts,
        std::make_unique<ShortcutsPage>(
            kit, &subjects.hotkeys, world.preferences, world.keyRecorder, world.alerts));
    view.setPage(SettingsTab::privacy,
        std::make_unique<PrivacyPage>(kit, subjects.monitor, world.applications, world.alerts));
    view.setPage(SettingsTab::data, std::make_unique<DataPage>(subjects.store, subjects.actions));
    view.setPage(SettingsTab::help, std::make_unique<HelpPage>(subjects.hotkeys));
    view.setPage(SettingsTab::about,
        std::make_unique<AboutPage>(symbols, applicationIcon(), runningVersion));
}

} // namespace korvane
