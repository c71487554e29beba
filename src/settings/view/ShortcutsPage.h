#pragma once

#include "model/Preferences.h"
#include "settings/view/ControlKit.h"
#include "settings/view/FormPage.h"

#include <string_view>
#include <vector>

namespace korvane {

class Alerts;
class FormSection;
class HotkeyManager;
class HotkeyRecorderView;
class KeyRecorder;

/// The Shortcuts page: the global shortcut, and which keys the panel listens to.
class ShortcutsPage : public FormPage {
public:
    /// @param hotkeys  none: there is no application to change the shortcut of
    ShortcutsPage(const ControlKit& kit, HotkeyManager* hotkeys, Preferences& preferences,
        KeyRecorder& keys, Alerts& alerts, QWidget* parent = nullptr);

    HotkeyRecorderView& recorder() const { return *m_recorder; }

private:
    void addSwitch(const ControlKit& kit, FormSection& section, std::string_view title,
        Preferences& preferences, std::string_view key);

    HotkeyRecorderView* m_recorder; // its child
    std::vector<Connection> m_connections;
};

} // namespace korvane
