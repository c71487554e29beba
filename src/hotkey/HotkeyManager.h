#pragma once

#include "hotkey/HotkeyGrabber.h"
#include "hotkey/Shortcut.h"
#include "model/MainLoop.h"
#include "model/Signal.h"

#include <functional>
#include <memory>
#include <optional>

namespace korvane {

class Preferences;

/// Holds the one global shortcut of the program, and keeps it in the preferences.
class HotkeyManager {
public:
    HotkeyManager(HotkeyGrabber& grabber, Preferences& preferences, MainLoop& loop);
    /// Releases the shortcut.
    ~HotkeyManager();
    HotkeyManager(const HotkeyManager&) = delete;
    HotkeyManager& operator=(const HotkeyManager&) = delete;

    /// What a press of the shortcut does; called on the loop's next turn, never from within the
    /// desktop's dispatch of the key.
    std::function<void()> onHotkey;

    /// Holds this chord instead of the one before. False: it cannot be had, and none is held now.
    bool registerShortcut(KeyCode keyCode, ModifierMask modifiers);

    /// The stored shortcut. What is absent or of the wrong type takes its default, each for itself;
    /// an empty label reads as "Space". None: a stored number lies outside 0 … 4294967295, which
    /// the program must not run with.
    std::optional<Shortcut> loadShortcut() const;
    void saveShortcut(const Shortcut& shortcut);

    /// Registers and stores another shortcut. False: it is taken; then the stored one is held again,
    /// nothing is stored, and `refused` is told.
    bool changeShortcut(const Shortcut& shortcut);
    /// Registers and stores Control-Space. False: it is taken; then the stored one is held again
    /// and nothing is stored. Nobody is told, deliberately.
    bool restoreDefaultShortcut();

    /// Another shortcut was asked for, here or by a change of the preferences from outside, and it is
    /// taken. The one before is held again.
    Signal<> refused;

private:
    bool registerAndSave(const Shortcut& shortcut);
    void pressed();
    void preferencesChanged();

    HotkeyGrabber& m_grabber;
    Preferences& m_preferences;
    MainLoop& m_loop;
    /// The stored shortcut as last seen; what the preferences hold now may be newer.
    std::optional<Shortcut> m_stored;
    /// One from outside that was refused, which is not tried again at every other change.
    std::optional<Shortcut> m_refused;
    bool m_isStarted = false;
    bool m_isSaving = false;
    /// Shared with the posted calls of `onHotkey`, which come to nothing when we have gone.
    std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true);
    Connection m_pressed;
    Connection m_preferencesChanged;
};

} // namespace korvane
