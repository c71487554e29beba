#pragma once

#include "app/Windows.h"

#include <QRect>

namespace korvane {

/// Where the screen lies that windows are placed on: its top left corner in global coordinates, in
/// which y grows downward, and its height, all in points. The program counts upward from the screen's
/// bottom left corner, the toolkit downward from the desktop's top left; windows are turned over here
/// and nowhere else.
struct ScreenGeometry {
    double left = 0;
    double top = 0;
    double height = 0;

    /// As the program counts.
    Rect upward(const QRect& onDesktop) const;
    /// As the toolkit counts, in whole points.
    QRect onDesktop(const Rect& upward) const;
};

} // namespace korvane
