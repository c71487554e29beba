#pragma once

#include "app/view/SettingsWindow.h"

namespace korvane {

/// Gives each tab of the settings its page.
void addSettingsPages(PreferencesView& view, const SettingsSubjects& subjects,
    const SettingsWindow::World& world, Symbols& symbols);

} // namespace korvane
