#pragma once

#include "model/Signal.h"

#include <array>
#include <optional>
#include <string_view>

namespace korvane {

/// The pages of the settings window, in the order in which they are offered.
enum class SettingsTab { general, shortcuts, privacy, data, help, about };

inline constexpr std::array allSettingsTabs { SettingsTab::general, SettingsTab::shortcuts,
    SettingsTab::privacy, SettingsTab::data, SettingsTab::help, SettingsTab::about };

/// The name by which the row of pages knows it.
std::string_view identifierOf(SettingsTab tab);
/// As the user sees it.
std::string_view titleOf(SettingsTab tab);
/// One of the program's own symbols.
std::string_view symbolOf(SettingsTab tab);
/// The tab of this identifier; none when it is nobody's.
std::optional<SettingsTab> settingsTabNamed(std::string_view identifier);

/// Which page is shown.
class SettingsTabSelection {
public:
    Observable<SettingsTab> selection { SettingsTab::general };

    /// What the row of pages asks for. An identifier that is nobody's changes nothing.
    void select(std::string_view identifier);
};

} // namespace korvane
