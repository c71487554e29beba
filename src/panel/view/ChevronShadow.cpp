#include "panel/view/ChevronShadow.h"

#include <QPainter>

namespace korvane {

namespace {
    constexpr int spread = 6; // how far the shadow reaches on each side
    constexpr int offset = 2; // the light comes from above
    constexpr double strength = 0.14;
    constexpr int steps = 6;
} // namespace

ChevronShadow::ChevronShadow(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void ChevronShadow::placeUnder(const QRect& chevron)
{
    setGeometry(chevron.adjusted(-spread, -spread, spread, spread).translated(0, offset));
}

void ChevronShadow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    // One thin layer upon the other, each smaller than the one before.
    painter.setBrush(QColor::fromRgbF(0, 0, 0, static_cast<float>(strength / steps)));
    for (int step = 0; step < steps; ++step) {
        const double inset = step * 2.0 * spread / steps;
        const auto layer = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
        painter.drawRoundedRect(layer, layer.height() / 2, layer.height() / 2);
    }
}

} // namespace korvane
