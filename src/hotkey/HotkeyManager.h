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

    /// The one that the program acts on. What the preferences hold may be another one: taken by
    /// somebody else, no shortcut at all, or gone for a moment.
    const Shortcut& shortcut() const { return m_shortcut.value(); }
    /// Calls the slot with the present one at once, and with every later one.
    Connection observeShortcut(std::function<void(const Shortcut&)> slot);

    /// See `storedShortcut`.
    std::optional<Shortcut> loadShortcut() const;
    void saveShortcut(const Shortcut& shortcut);

    /// Registers and stores another shortcut. False: it is taken; then the stored one is held again
    /// and nothing is stored. Whoever asked for it tells the user.
    bool changeShortcut(const Shortcut& shortcut);
    /// The same with Control-Space.
    bool restoreDefaultShortcut();

    /// A change of the preferences from outside asked for a shortcut that is taken. The one before is
    /// held again.
    Signal<> refused;

private:
    void setStored(const Shortcut& shortcut);
    void pressed();
    void preferencesChanged();

    HotkeyGrabber& m_grabber;
    Preferences& m_preferences;
    MainLoop& m_loop;
    /// The stored shortcut as last seen; what the preferences hold now may be newer.
    std::optional<Shortcut> m_stored;
    /// The same, or the default as long as none that could be one has been seen.
    Observable<Shortcut> m_shortcut;
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
