#include "settings/view/SlimScrollBar.h"

#include "look/view/Colours.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>

#include <algorithm>

namespace korvane {

namespace {
    constexpr double inset = 2;
    constexpr double restingOpacity = 0.35;
    constexpr double heldOpacity = 0.6;
} // namespace

SlimScrollBar::SlimScrollBar(QWidget* parent, Qt::Orientation orientation)
    : QScrollBar(orientation, parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent, false); // the page shows through
    setAttribute(Qt::WA_Hover);
}

QSize SlimScrollBar::sizeHint() const
{
    const auto usual = QScrollBar::sizeHint();
    return orientation() == Qt::Vertical ? QSize(thickness, usual.height())
                                         : QSize(usual.width(), thickness);
}

void SlimScrollBar::paintEvent(QPaintEvent*)
{
    if (maximum() <= minimum())
        return;
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRectF thumb
        = style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this);
    auto colour = coloursOf(palette()).secondary;
    colour.setAlphaF(
        static_cast<float>(isSliderDown() || underMouse() ? heldOpacity : restingOpacity));
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    const auto shape = thumb.adjusted(inset, inset, -inset, -inset);
    const auto radius = std::min(shape.width(), shape.height()) / 2;
    painter.drawRoundedRect(shape, radius, radius);
}

} // namespace korvane
