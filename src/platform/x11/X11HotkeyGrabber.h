#pragma once

#include "hotkey/HotkeyGrabber.h"
#include "platform/x11/X11Connection.h"

#include <array>
#include <cstddef>
#include <optional>

namespace korvane {

class KeyMap;

/// Takes a key chord by passive grabs of its key on the root window, one for each state of Caps
/// Lock and Num Lock. When the user changes the layout, the grabs follow the key.
class X11HotkeyGrabber : public HotkeyGrabber {
public:
    X11HotkeyGrabber(X11Connection& connection, KeyMap& keyMap);
    ~X11HotkeyGrabber() override;
    X11HotkeyGrabber(const X11HotkeyGrabber&) = delete;
    X11HotkeyGrabber& operator=(const X11HotkeyGrabber&) = delete;

    bool grab(KeyCode keyCode, ModifierMask modifiers) override;
    void release() override;

    /// The server's time of the last press; `XCB_CURRENT_TIME` before the first. Whoever answers the
    /// press by taking the keyboard says this time (ICCCM 4.1.7).
    xcb_timestamp_t lastPressTime() const { return m_lastPressTime; }

private:
    struct Chord {
        KeyCode keyCode;
        ModifierMask modifiers;
    };
    /// What the server was asked for: a key, and its modifiers with each state of the lock keys.
    struct Grab {
        xcb_keycode_t key;
        std::array<std::uint16_t, 4> states;

        friend bool operator==(const Grab&, const Grab&) = default;
    };

    std::optional<Grab> resolve(Chord chord);
    bool take(const Grab& wanted);
    void letGo();
    void followKeyMap();
    void keyPressed(const xcb_key_press_event_t& event);
    void keyReleased(const xcb_key_release_event_t& event);

    X11Connection& m_connection;
    KeyMap& m_keyMap;
    std::optional<Chord> m_chord;           // what was asked for and is to be held
    std::optional<Grab> m_grab;             // what the server gave for it
    std::optional<xcb_keycode_t> m_heldKey; // pressed, and not let go yet
    xcb_timestamp_t m_lastPressTime = XCB_CURRENT_TIME;
    std::array<Connection, 3> m_connections;
};

} // namespace korvane
