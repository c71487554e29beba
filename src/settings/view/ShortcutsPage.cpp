#include "settings/view/ShortcutsPage.h"

#include "settings/ShortcutsTexts.h"
#include "settings/view/Bindings.h"
#include "settings/view/FormSection.h"
#include "settings/view/HotkeyRecorderView.h"
#include "settings/view/Switch.h"

#include <memory>
#include <utility>

namespace korvane {

ShortcutsPage::ShortcutsPage(const ControlKit& kit, HotkeyManager* hotkeys,
    Preferences& preferences, KeyRecorder& keys, Alerts& alerts, QWidget* parent)
    : FormPage(parent)
{
    auto& section = addSection(QString::fromUtf8(shortcutstexts::globalShortcut));
    auto recorder = std::make_unique<HotkeyRecorderView>(hotkeys, preferences, keys, alerts);
    m_recorder = recorder.get();
    section.addRow(QString::fromUtf8(shortcutstexts::openKorvane), std::move(recorder));
    // On while nothing is stored, although the panel then takes the first for off: deliberately. It
    // follows from the first turn on.
    addSwitch(kit, section, shortcutstexts::directSelect, preferences, keys::enableDirectPaste);
    addSwitch(kit, section, shortcutstexts::tabCycling, preferences, keys::enableTabCycling);
    addCaption(QString::fromUtf8(shortcutstexts::navigation));
}

void ShortcutsPage::addSwitch(const ControlKit& kit, FormSection& section, std::string_view title,
    Preferences& preferences, std::string_view key)
{
    auto control = std::make_unique<Switch>(kit.loop);
    m_connections.push_back(keepInStep(*control, preferences, key, true));
    section.addRow(QString::fromUtf8(title), std::move(control));
}

} // namespace korvane
