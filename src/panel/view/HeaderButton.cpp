#include "panel/view/HeaderButton.h"

#include "look/view/Colours.h"
#include "look/view/Symbols.h"

#include <QPainter>

#include <utility>

namespace korvane {

namespace {
    constexpr double radius = 7;
    // A symbol fills 18 of the 24 units of its drawing: what is seen of it is 13 points wide.
    constexpr double boxSize = 17;
    constexpr double ringWidth = 1.5;
} // namespace

HeaderButton::HeaderButton(
    Symbols& symbols, const QString& name, std::function<void()> clicked, QWidget* parent)
    : QAbstractButton(parent)
    , m_symbols(symbols)
{
    resize(edge, edge);
    setAccessibleName(name);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover); // painted anew when the pointer comes and goes
    connect(this, &QAbstractButton::clicked, this, std::move(clicked));
}

void HeaderButton::setSymbol(std::string_view symbol, Tone tone)
{
    m_symbol = symbol;
    m_tone = tone;
    update();
}

void HeaderButton::paintEvent(QPaintEvent*)
{
    const auto& colours = coloursOf(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (isDown() || underMouse()) {
        painter.setBrush(isDown() ? colours.pressed : colours.hover);
        painter.drawRoundedRect(rect(), radius, radius);
    }
    if (hasFocus()) {
        constexpr double inset = ringWidth / 2;
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(colours.selectedIcon, ringWidth));
        painter.drawRoundedRect(
            QRectF(rect()).adjusted(inset, inset, -inset, -inset), radius - inset, radius - inset);
    }
    m_symbols.paint(painter, m_symbol, rect(), boxSize,
        m_tone == Tone::orange ? colours.orange : colours.secondary);
}

} // namespace korvane
