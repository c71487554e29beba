#pragma once

#include <QRect>
#include <QRegion>

namespace korvane {

/// A rectangle with rounded corners as a region, for a window that is cut to its shape. A region has
/// whole pixels only: a row is as wide as the curve lets it be at its middle.
QRegion roundedRegion(const QRect& rect, int radius);

} // namespace korvane
