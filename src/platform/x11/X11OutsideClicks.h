#pragma once

#include "app/Windows.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <functional>

namespace korvane {

class X11Connection;
class X11RawInput;

/// Tells a window of one connection from those of all others: the server gives every connection a
/// range of numbers of its own, so nobody can pretend to be it.
/// @param connection  the one whose windows are "own"; none of the windows is, where there is none
std::function<bool(xcb_window_t)> windowsOf(xcb_connection_t* connection);

/// Hears button presses everywhere without taking them from the windows that they are for.
class X11OutsideClicks : public OutsideClicks {
public:
    X11OutsideClicks(X11Connection& connection, X11RawInput& rawInput,
        std::function<bool(xcb_window_t)> isOwnWindow);
    ~X11OutsideClicks() override;
    X11OutsideClicks(const X11OutsideClicks&) = delete;
    X11OutsideClicks& operator=(const X11OutsideClicks&) = delete;

    void watch() override;
    void unwatch() override;

private:
    bool isPointerOverOwnWindow();

    X11Connection& m_connection;
    X11RawInput& m_rawInput;
    std::function<bool(xcb_window_t)> m_isOwnWindow;
    Connection m_buttonPressed;
};

} // namespace korvane
