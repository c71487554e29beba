#pragma once

#include <QRect>
#include <QRegion>

namespace korvane {

/// How round the corners of the panel, its preview and its menus are, in points.
inline constexpr int windowRadius = 12;

/// A rectangle with rounded corners as a region, for a window that is cut to its shape. A region has
/// whole pixels only: a row is as wide as the curve lets it be at its middle.
QRegion roundedRegion(const QRect& rect, int radius);

} // namespace korvane
