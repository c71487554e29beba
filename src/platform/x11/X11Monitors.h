#pragma once

#include "platform/x11/WorkArea.h"

#include <xcb/xcb.h>

#include <vector>

namespace korvane {

class X11Connection;

/// A monitor, and what the bars on it leave free.
struct MonitorArea {
    PixelRect monitor;
    PixelRect visible;
};

/// The monitors and the bars on them, read anew at each question: managers that tell the free room
/// of every monitor are rare, so it is computed from what the bars themselves say.
class X11Monitors {
public:
    explicit X11Monitors(X11Connection& connection);

    /// The monitor at this point of the screen, or else the one that is nearest to it. All zero when
    /// there is no server.
    MonitorArea areaAt(int x, int y);

private:
    PixelRect screen();
    std::vector<PixelRect> monitors(const PixelRect& screen);

    X11Connection& m_connection;
    bool m_hasMonitors; // the server tells of monitors (RandR 1.5)
};

} // namespace korvane
