#pragma once

#include "capture/Workspace.h"
#include "model/Signal.h"
#include "platform/x11/WindowHints.h"

#include <xcb/xcb.h>

#include <functional>
#include <optional>
#include <set>
#include <vector>

namespace korvane {

class DesktopEntries;
class X11Connection;

/// The applications on the desktop, as the window manager and the windows' own properties tell
/// (Extended Window Manager Hints).
///
/// What is in front is followed event by event: of things that have happened while the loop was
/// busy, a change of windows, a copy and another change, the copy is judged by the window that it was
/// made in. The manager's word cannot be asked for as it was then; so the windows themselves are
/// listened to as well, whose events name the one that got the keyboard.
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
    struct Front {
        xcb_window_t window;
        WindowHints hints;
    };

    void watch();
    void listenToWindows();
    void activeWindowChanged();
    bool isChangeWaiting();
    void setFront(xcb_window_t window);
    bool haveKeyboard();
    /// What is in front as far as the events have been delivered; none: nothing, or we are.
    const Front* front();

    X11Connection& m_connection;
    DesktopEntries& m_entries;
    std::function<bool(xcb_window_t)> m_isOwnWindow;
    xcb_atom_t m_activeWindow;
    xcb_atom_t m_clientList;
    std::set<xcb_window_t> m_listenedTo;
    std::optional<Front> m_front;
    std::vector<Connection> m_events;
};

} // namespace korvane
