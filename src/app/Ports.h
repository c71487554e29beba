#pragma once

#include <functional>
#include <memory>
#include <string>

namespace korvane {

class Alerts;
class Appearance;
class ClipStore;
class ClipboardMonitor;
class DataActions;
class Desktop;
class DocumentFetcher;
class FileDialogs;
class HotkeyGrabber;
class HotkeyManager;
class Keyboard;
class LimitFields;
class Log;
class MainLoop;
class OutsideClicks;
class PanelController;
class Pasteboard;
class PlacedWindow;
class Preferences;
class PreviewWindow;
class Screens;
class SettingsTabSelection;
class SoundPlayer;
class StatusItem;
class Workspace;

/// What the settings window shows and changes, beside the preferences. All of it outlives the window.
struct SettingsSubjects {
    ClipStore& store;
    ClipboardMonitor& monitor;
    HotkeyManager& hotkeys;
    LimitFields& limits;
    DataActions& actions;
    SettingsTabSelection& selection;
};

/// Everything that the application is given of the world. All of it outlives the application.
struct Ports {
    MainLoop& loop;
    Log& log;
    Preferences& preferences;
    Pasteboard& pasteboard;
    Workspace& workspace;
    HotkeyGrabber& hotkeyGrabber;
    Keyboard& keyboard;
    Desktop& desktop;
    SoundPlayer& sounds;
    StatusItem& statusItem;
    Screens& screens;
    OutsideClicks& outsideClicks;
    Appearance& appearance;
    Alerts& alerts;
    DocumentFetcher& documents;
    FileDialogs& fileDialogs;
    /// Builds the panel's window over the store, driven by the controller.
    std::function<std::unique_ptr<PlacedWindow>(ClipStore&, PanelController&)> makePanel;
    /// Builds the preview's window.
    std::function<std::unique_ptr<PreviewWindow>()> makePreview;
    /// Ends the program, on the next turn of the loop.
    std::function<void()> quit;
    /// Where the project's pages are; the host of this address tells the newest version.
    std::string site;
    /// Builds the settings window, when it is first wanted.
    std::function<std::unique_ptr<PlacedWindow>(const SettingsSubjects&)> makeSettings;
};

} // namespace korvane
