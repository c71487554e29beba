#include "look/view/Outline.h"

#include <QPen>
#include <QTransform>

#include <algorithm>
#include <cmath>

namespace korvane {

QRectF onPixels(const QPainter& painter, const QRectF& place)
{
    const auto toPixels = painter.deviceTransform();
    const auto exact = toPixels.mapRect(place);
    const QRectF snapped(QPointF(std::round(exact.left()), std::round(exact.top())),
        QPointF(std::round(exact.right()), std::round(exact.bottom())));
    return toPixels.inverted().mapRect(snapped);
}

void paintOutline(
    QPainter& painter, const QRectF& place, double radius, const QColor& colour, double width)
{
    const double ratio = painter.deviceTransform().m11();
    const double pen = std::max(std::round(width * ratio), 1.0) / ratio;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, pen));
    const double inset = pen / 2;
    painter.drawRoundedRect(onPixels(painter, place).adjusted(inset, inset, -inset, -inset),
        radius - inset, radius - inset);
}

} // namespace korvane
