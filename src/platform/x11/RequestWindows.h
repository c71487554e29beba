#pragma once

#include "platform/x11/X11Connection.h"

#include <deque>

namespace korvane {

/// Makes the windows to which a selection's owner delivers, one for each request, so that an answer
/// that comes late cannot be taken for another's. Windows that are done with stay for a while: the
/// owner may still be writing, and many a program ends itself upon the error that a window which has
/// gone would earn it - and its copy would go with it.
class RequestWindows {
public:
    /// A window for one request, given back when this is destroyed.
    class Window {
    public:
        explicit Window(RequestWindows& windows);
        Window(const Window&) = delete;
        Window& operator=(const Window&) = delete;
        ~Window();

        xcb_window_t id() const { return m_id; }

    private:
        RequestWindows& m_windows;
        xcb_window_t m_id;
    };

    explicit RequestWindows(X11Connection& connection);

    /// The property of such a window that the owner is asked to fill.
    xcb_atom_t property() const { return m_property; }

private:
    xcb_window_t make();
    void retire(xcb_window_t window);

    X11Connection& m_connection;
    xcb_atom_t m_property;
    std::deque<xcb_window_t> m_retired;
};

} // namespace korvane
