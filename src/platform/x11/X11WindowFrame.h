#pragma once

#include "platform/x11/WorkArea.h"

#include <xcb/xcb.h>

namespace korvane {

class X11Connection;

/// Tells the desktop which part of a window of ours is the window and which only its shadow. Clicks
/// on the shadow go to what is behind it, and nobody counts it to the window's size or casts another
/// shadow around it.
/// @param visible  the window without its shadow, in pixels from the window's own corner
/// @param width, height  of the window with its shadow, in pixels
void tellWindowFrame(X11Connection& connection, xcb_window_t window, const PixelRect& visible,
    int width, int height);

} // namespace korvane
