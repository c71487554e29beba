#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>

namespace korvane {

/// The rectangle moved to the nearest whole pixels of what is painted on, so that its edges are crisp
/// also where a point is not a whole number of pixels.
QRectF onPixels(const QPainter& painter, const QRectF& place);

/// Draws the edge of a rounded rectangle, on its inside and on whole pixels.
/// @param width  in points; it is drawn at least one pixel wide
void paintOutline(
    QPainter& painter, const QRectF& place, double radius, const QColor& colour, double width = 1);

} // namespace korvane
