#pragma once

#include <xcb/xcb.h>

namespace korvane {

/// While a key or the keyboard is grabbed by somebody, it is only lent, and comes back to whom it was.
inline bool isLent(const xcb_focus_in_event_t& focus)
{
    return focus.mode == XCB_NOTIFY_MODE_GRAB || focus.mode == XCB_NOTIFY_MODE_UNGRAB;
}

/// The window has, or had, the keyboard only because the pointer is over it.
inline bool isPointers(const xcb_focus_in_event_t& focus)
{
    return focus.detail == XCB_NOTIFY_DETAIL_POINTER
        || focus.detail == XCB_NOTIFY_DETAIL_POINTER_ROOT;
}

} // namespace korvane
