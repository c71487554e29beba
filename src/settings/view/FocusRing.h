#pragma once

#include <QRectF>

class QPainter;
class QWidget;

namespace korvane {

/// Paints the ring around what has the keyboard, inside of a rounded rectangle. A field that is typed in
/// always has it; for all else see `KeyboardUse`.
void paintFocusRing(QPainter& painter, const QWidget& widget, const QRectF& around, double radius);

} // namespace korvane
