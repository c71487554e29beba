#pragma once

#include "model/Signal.h"
#include "platform/x11/X11Connection.h"

namespace korvane {

/// Whether a compositing manager runs, which lets windows be translucent: it owns the selection
/// "_NET_WM_CM_Sn" of its screen (EWMH).
class X11Compositor {
public:
    explicit X11Compositor(X11Connection& connection);
    X11Compositor(const X11Compositor&) = delete;
    X11Compositor& operator=(const X11Compositor&) = delete;

    Observable<bool>& isRunning() { return m_isRunning; }

private:
    void ask();

    X11Connection& m_connection;
    xcb_atom_t m_selection;
    Observable<bool> m_isRunning;
    Connection m_ownerChanged;
};

} // namespace korvane
