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
/// listened to as well, whose events name the one that got the keyboard. Where neither tells, as of a
/// window that came and went in that time, the application in front is one that is not known.
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
        /// None where it was gone before they could be read: until the word of its end comes, what
        /// is delivered may be its doing.
        std::optional<WindowHints> hints;
        /// No other has taken the keyboard from it, as far as the events have been delivered.
        bool hasKeyboard = true;
    };

    void watch();
    void listenToWindows();
    void focusCame(const xcb_focus_in_event_t& focus);
    void focusLeft(const xcb_focus_out_event_t& focus);
    void windowIsGone(xcb_window_t window);
    void activeWindowChanged();
    bool isChangeWaiting();
    void setFront(xcb_window_t window);
    bool haveKeyboard();
    /// Somebody is in front, and it is too late to learn who.
    bool isFrontUnknown() const;
    /// The hints of what was in front when it was last known; none: nothing was, or we were, or it is
    /// gone.
    const WindowHints* frontHints();

    X11Connection& m_connection;
    DesktopEntries& m_entries;
    std::function<bool(xcb_window_t)> m_isOwnWindow;
    xcb_atom_t m_activeWindow;
    xcb_atom_t m_clientList;
    std::set<xcb_window_t> m_listenedTo;
    std::optional<Front> m_front;
    /// The manager has told of a change of which only the outcome could still be read, and the
    /// event that tells of that outcome is on its way.
    bool m_hasMissedChange = false;
    std::vector<Connection> m_events;
};

} // namespace korvane
