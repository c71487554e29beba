#pragma once

#include <functional>
#include <memory>

namespace korvane {

class Alerts;
class Appearance;
class ClipStore;
class Desktop;
class HotkeyGrabber;
class Keyboard;
class Log;
class MainLoop;
class OutsideClicks;
class PanelController;
class Pasteboard;
class PlacedWindow;
class Preferences;
class PreviewWindow;
class Screens;
class SoundPlayer;
class StatusItem;
class Workspace;

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
    /// Builds the panel's window over the store, driven by the controller.
    std::function<std::unique_ptr<PlacedWindow>(ClipStore&, PanelController&)> makePanel;
    /// Builds the preview's window.
    std::function<std::unique_ptr<PreviewWindow>()> makePreview;
    /// Ends the program, on the next turn of the loop.
    std::function<void()> quit;
    /// Starts the update check that the user asked for; none where the program has no such check.
    std::function<void()> checkForUpdates;
    /// The window of the settings; none where the program has no such window.
    PlacedWindow* settings = nullptr;
};

} // namespace korvane
