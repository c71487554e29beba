#pragma once

#include "platform/wayland/SeatKeyboard.h"
#include "platform/wayland/WaylandConnection.h"
#include "platform/wayland/WaylandKeyRecorder.h"
#include "platform/wayland/WaylandKeyboard.h"
#include "platform/wayland/WaylandPasteboard.h"
#include "platform/wayland/WaylandWorkspace.h"
#include "platform/xdg/DesktopEntries.h"
#include "platform/xdg/XdgApplications.h"

#include <functional>

namespace korvane {

/// The backends of a Wayland session, made together because they share one connection, on which the
/// compositor's events keep their order.
class WaylandPlatform {
public:
    /// @param toolkit      the connection that our windows are on
    /// @param isPanelOpen  see WaylandWorkspace
    WaylandPlatform(MainLoop& loop, wl_display* toolkit, std::function<bool()> isPanelOpen);
    WaylandPlatform(const WaylandPlatform&) = delete;
    WaylandPlatform& operator=(const WaylandPlatform&) = delete;

    WaylandConnection& connection() { return m_connection; }
    Pasteboard& pasteboard() { return m_pasteboard; }
    Workspace& workspace() { return m_workspace; }
    KeyRecorder& keyRecorder() { return m_keyRecorder; }
    Applications& applications() { return m_applications; }
    Keyboard& keyboard() { return m_keyboard; }
    /// What the user's keys mean.
    SeatKeyboard& user() { return m_user; }

private:
    WaylandConnection m_connection;
    DesktopEntries m_entries;
    XdgApplications m_applications;
    SeatKeyboard m_user;
    // Before the clipboard: who was in front when a copy is told is who was when it was made.
    WaylandWorkspace m_workspace;
    WaylandPasteboard m_pasteboard;
    WaylandKeyboard m_keyboard;
    WaylandKeyRecorder m_keyRecorder;
};

} // namespace korvane
