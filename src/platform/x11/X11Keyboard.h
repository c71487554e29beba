#pragma once

#include "hotkey/Keyboard.h"
#include "platform/x11/X11Connection.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>

namespace korvane {

class KeyMap;
class X11RawInput;

/// Types by the XTEST extension, and hears by raw events. Ctrl plays the part of Command and Super
/// that of Control, both ways.
class X11Keyboard : public Keyboard {
public:
    /// How a terminal is pasted into: it takes Ctrl+V for a character of its own, but every one of
    /// them pastes at Shift+Insert, some from the clipboard and some from PRIMARY.
    struct Terminals {
        /// Is the window in front a terminal?
        std::function<bool()> isInFront;
        /// Puts what is on the clipboard on PRIMARY as well; it is there when this returns.
        std::function<void()> takePrimary;
    };

    X11Keyboard(
        X11Connection& connection, KeyMap& keyMap, X11RawInput& rawInput, Terminals terminals);

    void typeChord(KeyCode keyCode, ModifierMask modifiers) override;
    /// Every key press that has a virtual code is told, without its characters: whoever wants to
    /// know that a paste was typed need not know what else is. A paste into a terminal is told as
    /// the paste that it is.
    bool listen() override;

private:
    void typeKey(xcb_keycode_t key, std::uint16_t stateBits);
    void letGoOfHeldModifiers();
    void fake(std::uint8_t type, xcb_keycode_t key);
    void followState();
    std::uint8_t currentLayout();
    std::optional<KeyCode> keyCodeOf(xcb_keycode_t key);
    void keyPressed(xcb_keycode_t key);

    X11Connection& m_connection;
    KeyMap& m_keyMap;
    X11RawInput& m_rawInput;
    Terminals m_terminals;
    // The keyboard's state as the listener knows it.
    std::uint16_t m_state = 0;
    std::uint8_t m_layout = 0;
    std::array<Connection, 2> m_connections;
};

} // namespace korvane
