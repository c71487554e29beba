#pragma once

#include "platform/xdg/DesktopEntries.h"

#include <xcb/xcb.h>

#include <optional>
#include <string>
#include <vector>

namespace korvane {

class X11Connection;

/// What a window's properties tell of the program behind it. They are any program's to write, so
/// nothing is believed of them but that they are short texts.
struct WindowHints {
    ProgramHints program;
    std::string title; ///< empty where there is none
};

/// Reads the properties of a window in one round trip, and where it runs on this machine the name
/// of its program file. None when the window is gone.
std::optional<WindowHints> readWindowHints(X11Connection& connection, xcb_window_t window);

/// A property of a window that holds windows, or numbers, of this type; empty where it does not.
std::vector<std::uint32_t> readNumbers(
    X11Connection& connection, xcb_window_t window, xcb_atom_t property, xcb_atom_t type);

/// A property of a window that holds one window, or a number, and nothing else: 0 where it does not.
std::uint32_t readNumber(
    X11Connection& connection, xcb_window_t window, xcb_atom_t property, xcb_atom_t type);

} // namespace korvane
