#pragma once

#include "capture/Workspace.h"
#include "platform/x11/WindowHints.h"

#include <xcb/xcb.h>

#include <functional>
#include <optional>

namespace korvane {

class DesktopEntries;
class X11Connection;

/// The applications on the desktop, as the window manager and the windows' own properties tell
/// (Extended Window Manager Hints).
class X11Workspace : public Workspace {
public:
    /// @param isOwnWindow  is it a window of this program? What is in front is never ourselves.
    X11Workspace(X11Connection& connection, DesktopEntries& entries,
        std::function<bool(xcb_window_t)> isOwnWindow);

    std::optional<RunningApplication> frontmost() override;
    void activate(const RunningApplication& application) override;

    /// Does the window in front belong to a terminal emulator?
    bool isTerminalInFront();

private:
    std::optional<xcb_window_t> activeWindow();

    X11Connection& m_connection;
    DesktopEntries& m_entries;
    std::function<bool(xcb_window_t)> m_isOwnWindow;
};

} // namespace korvane
