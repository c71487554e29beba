#pragma once

#include "model/MainLoop.h"
#include "model/Signal.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <functional>

namespace korvane {

class X11Connection;

/// The keyboard for a window that the window manager does not know of: it is taken from the window
/// that has it, held, and given back.
///
/// A window that takes the keyboard meanwhile by itself, or because the pointer crosses it where the
/// focus follows the pointer, does not get it: whoever looks at the panel types into the panel. A
/// user who goes to another window by a key of the window manager, which listens to the keyboard in
/// our place as long as that key is held, is let go.
class X11Focus {
public:
    X11Focus(
        X11Connection& connection, MainLoop& loop, std::function<bool(xcb_window_t)> isOwnWindow);

    /// Gives the keyboard to the window, which must be on the screen already as far as the server
    /// knows (a window that is not cannot have it). Who has it now is remembered, unless that is a
    /// window of ours.
    /// @param time  the server's time of what the user did to bring this about (ICCCM 4.1.7);
    ///              `XCB_CURRENT_TIME` where that is not known
    /// @return whether the window has the keyboard now
    bool takeKeyboard(xcb_window_t window, xcb_timestamp_t time);
    /// The user goes from our window to another one of ours, which the manager does know and is about to
    /// make the active one: it gets the keyboard then.
    void passTo(xcb_window_t window);
    /// Gives the keyboard back to whom it was taken from, if it is still ours to give. To be called
    /// before our window is hidden, or right after.
    void giveBackKeyboard();

    /// The user has pressed a button of the pointer at this time of the server. The window manager may be about to
    /// hand the keyboard to the window under it, as of that time; what we give back must not count as later.
    void pressedAt(xcb_timestamp_t time) { m_pressedAt = time; }

    /// Who listens to the keyboard in our place now is we, for the shortcut: that is no going away.
    void keyIsOurs() { m_isLent = false; }

    /// The user has gone to another window by the keyboard. It stays there.
    Signal<> left;

private:
    struct Holder {
        xcb_window_t window = XCB_NONE; // or one of the protocol's two special numbers
        bool isKnown = false;
    };

    void hold(xcb_window_t window);
    void lost(const xcb_focus_out_event_t& event);
    void got(const xcb_focus_in_event_t& event);
    void activeWindowChanged();
    Holder holder();
    bool give(xcb_window_t window, std::uint8_t revertTo, xcb_timestamp_t time);
    bool giveBackTo(xcb_window_t window, xcb_window_t held);
    void holdPointerUntilGone(xcb_window_t window);
    void letPointerGo();

    X11Connection& m_connection;
    MainLoop& m_loop;
    std::function<bool(xcb_window_t)> m_isOwnWindow;
    xcb_atom_t m_activeWindow;
    Holder m_before;
    xcb_timestamp_t m_pressedAt = XCB_CURRENT_TIME;
    xcb_window_t m_held = XCB_NONE;
    xcb_window_t m_next = XCB_NONE; // that is to have it, until it is active
    /// How often it was taken back from others since then.
    int m_returns = 0;
    /// Somebody listens to the keyboard in our place, or did so just now.
    bool m_isLent = false;
    Timer m_lentUntil;
    Timer m_passing;                 // the user has only just gone to the next window
    xcb_window_t m_going = XCB_NONE; // that the pointer is held for
    Timer m_pointerHeld;
    Connection m_focusOut;
    Connection m_focusIn;
    Connection m_propertyChanged;
    Connection m_unmapped;
};

} // namespace korvane
