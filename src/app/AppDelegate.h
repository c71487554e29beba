#pragma once

#include "app/ClipboardNow.h"
#include "app/PanelShell.h"
#include "app/Paster.h"
#include "app/Ports.h"
#include "app/SoundCues.h"
#include "app/StatusText.h"
#include "capture/ClipboardMonitor.h"
#include "hotkey/HotkeyManager.h"
#include "model/ClipStore.h"
#include "panel/PanelController.h"
#include "panel/TabSwitcher.h"
#include "settings/DataActions.h"
#include "settings/LimitFields.h"
#include "settings/SettingsTab.h"
#include "update/UpdateChecker.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

namespace korvane {

/// Makes everything, connects it, and lets it go. It contains no rule.
class AppDelegate {
public:
    /// @param dataFolder  the folder of the history
    AppDelegate(Ports ports, const std::filesystem::path& dataFolder);
    ~AppDelegate();
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    /// Starts it all. False: the stored shortcut cannot be one (a number outside 0 … 4294967295),
    /// and the program must end.
    bool launch();

    ClipStore& clipStore() { return m_store; }
    ClipboardMonitor& clipboardMonitor() { return m_monitor; }
    HotkeyManager& hotkeyManager() { return m_hotkeys; }
    PanelShell& shell() { return m_shell; }

private:
    void setupStatusItem();
    void connectCapture();
    void connectPanel();
    void connectPreferences();
    void installPasteListener();
    void captured(ClipItem clip);
    void preparePanel();
    void selectWhatIsOnTheClipboard();
    void updateStatusTitle();
    void updateStatusIcon();
    void applyTheme();
    void checkForUpdates();
    void showUpdateAlert(const Alert& alert, Alerts::Answered answered);

    Ports m_ports;
    ClipStore m_store;
    ClipboardMonitor m_monitor;
    HotkeyManager m_hotkeys;
    SoundCues m_sounds;
    ClipboardNow m_clipboard;
    PanelShell m_shell;
    Paster m_paster;
    TabSwitcher m_tabs;
    PanelController m_panel;
    std::unique_ptr<PlacedWindow> m_panelWindow; // shows the store and asks the controller
    std::unique_ptr<PreviewWindow> m_previewPanel;
    std::optional<UpdateChecker> m_updates; // made when it is first needed
    SettingsTabSelection m_preferencesTabSelection;
    LimitFields m_limits;
    DataActions m_actions;
    std::unique_ptr<PlacedWindow> m_preferencesWindow; // shows all of the above
    /// Shared with reads under way, whose answers come to nothing when we have gone before them.
    std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true);
    std::vector<Connection> m_connections;
};

} // namespace korvane
