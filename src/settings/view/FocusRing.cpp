#include "settings/view/FocusRing.h"

#include "look/view/Outline.h"
#include "settings/view/SettingsColours.h"

#include <QPainter>
#include <QWidget>

namespace korvane {

namespace {
    constexpr double ringWidth = 1.5;
} // namespace

void paintFocusRing(QPainter& painter, const QWidget& widget, const QRectF& around, double radius)
{
    painter.setRenderHint(QPainter::Antialiasing);
    paintOutline(painter, around, radius, settingsColoursOf(widget.palette()).focus, ringWidth);
}

} // namespace korvane
