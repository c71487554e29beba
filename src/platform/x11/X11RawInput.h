#pragma once

#include "platform/x11/X11Connection.h"

#include <array>
#include <cstdint>
#include <optional>

namespace korvane {

struct ButtonPress {
    /// 1 is the left button and 3 the right one, before the user's mapping of buttons.
    std::uint32_t button = 0;
    /// The server's time of it.
    xcb_timestamp_t time = XCB_CURRENT_TIME;
};

/// Every key press and button press on the desktop, whichever window it goes to and whoever holds a
/// grab: the raw events of XInput 2. Nothing is taken from anyone by listening.
///
/// One object does this for a connection, because what a client asks for replaces what it asked for
/// before.
class X11RawInput {
public:
    explicit X11RawInput(X11Connection& connection);
    X11RawInput(const X11RawInput&) = delete;
    X11RawInput& operator=(const X11RawInput&) = delete;

    /// False where the server lacks XInput 2.1: then nothing is ever told.
    bool isAvailable() const { return m_extension.has_value(); }

    /// Whether to be told of key presses and of button presses. What nobody needs is not asked for:
    /// each event would wake the program.
    void tellKeys(bool wanted);
    void tellButtons(bool wanted);

    /// A key went down; repetitions of a held key are not told.
    Signal<xcb_keycode_t> keyPressed;
    /// A button of the pointer went down.
    Signal<ButtonPress> buttonPressed;

private:
    void select();

    X11Connection& m_connection;
    std::optional<X11Extension> m_extension;
    bool m_tellsKeys = false;
    bool m_tellsButtons = false;
    std::array<Connection, 2> m_connections;
};

} // namespace korvane
