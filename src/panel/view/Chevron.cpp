#include "panel/view/Chevron.h"

#include "look/view/Colours.h"
#include "look/view/Outline.h"
#include "look/view/Symbols.h"

#include <QApplication>
#include <QCursor>
#include <QEnterEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <utility>

namespace korvane {

namespace {
    constexpr double radius = 10;
    constexpr double symbolSize = 14;
} // namespace

Chevron::Chevron(
    ScrollDirection direction, Symbols& symbols, QWidget& list, Events events, QWidget* parent)
    : QAbstractButton(parent)
    , m_direction(direction)
    , m_symbols(symbols)
    , m_list(list)
    , m_events(std::move(events))
{
    resize(chevronWidth, chevronHeight);
    setFocusPolicy(Qt::NoFocus); // the keys have a way of their own through the list
    setMouseTracking(true);
    setAccessibleName(direction == ScrollDirection::up ? QStringLiteral("Scroll Up")
                                                       : QStringLiteral("Scroll Down"));
    hide();
    connect(this, &QAbstractButton::clicked, this, [this] { m_events.clicked(); });
}

void Chevron::paintEvent(QPaintEvent*)
{
    const auto& colours = coloursOf(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto shape = onPixels(painter, rect());
    const auto fill = [&](const QColor& colour) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawRoundedRect(shape, radius, radius);
    };
    fill(colours.panel); // the row under it does not shine through
    if (m_isHovered || isDown())
        fill(isDown() ? colours.pressed : colours.hover);
    paintOutline(painter, shape, radius, colours.edge);
    m_symbols.paint(painter, m_direction == ScrollDirection::up ? "chevron.up" : "chevron.down",
        rect(), symbolSize, m_isHovered ? colours.text : colours.secondary);
}

void Chevron::showEvent(QShowEvent*)
{
    m_restingAt = QCursor::pos();
}

void Chevron::hideEvent(QHideEvent* event)
{
    QAbstractButton::hideEvent(event);
    pointerGone();
}

void Chevron::enterEvent(QEnterEvent* event)
{
    pointerAt(event->globalPosition().toPoint());
}

void Chevron::leaveEvent(QEvent*)
{
    pointerGone();
}

void Chevron::mouseMoveEvent(QMouseEvent* event)
{
    if (rect().contains(event->position().toPoint()))
        pointerAt(event->globalPosition().toPoint());
    QAbstractButton::mouseMoveEvent(event);
}

void Chevron::wheelEvent(QWheelEvent* event)
{
    QApplication::sendEvent(&m_list, event);
}

void Chevron::pointerAt(const QPoint& global)
{
    // At fractions of a scale the same place may be told by two neighbouring points.
    const bool isResting = m_restingAt && (global - *m_restingAt).manhattanLength() <= 1;
    if (m_isHovered || isResting)
        return;
    m_isHovered = true;
    update();
    m_events.entered();
}

void Chevron::pointerGone()
{
    m_restingAt.reset();
    if (!std::exchange(m_isHovered, false))
        return;
    update();
    m_events.left();
}

} // namespace korvane
