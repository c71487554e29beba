#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <functional>

namespace korvane {

class X11Connection;

/// The keyboard for a window that the window manager does not know of: it is taken from the window
/// that has it, and given back.
class X11Focus {
public:
    X11Focus(X11Connection& connection, std::function<bool(xcb_window_t)> isOwnWindow);

    /// Gives the keyboard to the window, which must be on the screen already as far as the server
    /// knows (a window that is not cannot have it). Who has it now is remembered, unless that is a
    /// window of ours.
    /// @param time  the server's time of what the user did to bring this about (ICCCM 4.1.7);
    ///              `XCB_CURRENT_TIME` where that is not known
    /// @return whether the window has the keyboard now
    bool takeKeyboard(xcb_window_t window, xcb_timestamp_t time);
    /// Gives the keyboard back to whom it was taken from, if it is still ours to give. To be called
    /// before our window is hidden, or right after.
    void giveBackKeyboard();

private:
    struct Holder {
        xcb_window_t window = XCB_NONE; // or one of the protocol's two special numbers
        bool isKnown = false;
    };

    Holder holder();
    bool give(xcb_window_t window, std::uint8_t revertTo, xcb_timestamp_t time);

    X11Connection& m_connection;
    std::function<bool(xcb_window_t)> m_isOwnWindow;
    Holder m_before;
};

} // namespace korvane
