#pragma once

#include "hotkey/KeyCodes.h"
#include "model/ClipItem.h"
#include "model/FilterTab.h"
#include "model/Preferences.h"
#include "model/Signal.h"
#include "panel/ApplicationMenu.h"
#include "panel/PanelKeys.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace korvane {

class ClipActions;
class ClipboardMonitor;
class ClipStore;
class PanelHost;
class TabSwitcher;

/// Carries out the panel's keys, clicks and menus on the store and through the shell. An unknown
/// clip is ignored everywhere.
class PanelController {
public:
    PanelController(ClipStore& store, ClipboardMonitor& monitor, Preferences& preferences,
        PanelHost& host, ClipActions& actions, TabSwitcher& tabs);
    PanelController(const PanelController&) = delete;
    PanelController& operator=(const PanelController&) = delete;

    /// Every key press reaches this before any control of the panel sees it.
    /// @return whether the press goes no further
    bool handle(const KeyPress& press);

    /// Makes the panel ready, just before it is shown: the search is cleared, the tab stays, and
    /// the clip that is on the clipboard is selected, or else the first one.
    /// @param clipboardText  the text on the clipboard, where it is known
    void prepareToOpen(std::optional<std::string_view> clipboardText);

    /// The late end of an opening, when the text on the clipboard had to be fetched: selects the
    /// displayed clip with this text, or else the first one.
    void selectText(std::string_view text);

    /// A click on a row: selects the clip, puts it on the clipboard (or reveals its file) and
    /// closes the panel.
    void click(const ClipId& id);
    /// Selects the clip, and does nothing else with it.
    void selectClip(const ClipId& id);
    void copy(const ClipId& id);
    void pasteDirectly(const ClipId& id);
    /// Shows the overflow file of a large clip in the file manager.
    void reveal(const ClipId& id);
    void togglePin(const ClipId& id);
    /// The end of a rename in place; an empty name removes the clip's own name.
    void rename(const ClipId& id, std::string_view name);
    /// Selects the clip and shows its preview.
    void quickLook(const ClipId& id);
    /// Deletes the clip. When it is the selected one, the selection goes to the one that comes into its
    /// place, or to the last.
    void remove(const ClipId& id);

    /// A click on a tab.
    void switchTab(FilterTab tab);
    void openPreferences();
    /// A line of the menu of the whole program.
    void choose(applicationmenu::Action action);

    void togglePrivateMode();
    /// Tells at once whether private mode is on, and again whenever that changes, by whomever.
    Connection observePrivateMode(const std::function<void(bool)>& tell);
    /// Tells at once how the chevrons scroll, and again whenever the preferences change.
    Connection observeChevronActivation(const std::function<void(ChevronActivation)>& tell);

private:
    bool perform(panelcommands::Pass command);
    bool perform(panelcommands::ActivateSelected command);
    bool perform(panelcommands::ActivateAt command);
    bool perform(panelcommands::CycleTab command);
    bool perform(panelcommands::ShowPreview command);
    bool perform(panelcommands::HidePreview command);
    bool perform(panelcommands::DeleteSelected command);
    bool perform(panelcommands::Escape command);
    bool perform(panelcommands::MoveSelection command);
    bool perform(panelcommands::TogglePin command);

    void noteIndex();
    void keepSelectionDisplayed();
    void withClip(const std::optional<ClipId>& id, const std::function<void(const ClipItem&)>& act);

    ClipStore& m_store;
    ClipboardMonitor& m_monitor;
    Preferences& m_preferences;
    PanelHost& m_host;
    ClipActions& m_actions;
    TabSwitcher& m_tabs;
    std::size_t m_selectedIndex = 0; // of the selected clip when it was displayed last
    std::vector<Connection> m_connections;
};

} // namespace korvane
