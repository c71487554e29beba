#include "settings/view/RingedButton.h"

#include "look/view/Colours.h"
#include "settings/view/FocusRing.h"

#include <QKeyEvent>
#include <QKeySequence>
#include <QPainter>

namespace korvane {

void RingedButton::setLetter(QChar letter)
{
    Lettered::setLetter(letter, *this);
    setShortcut(QKeySequence(QStringLiteral("Alt+") + letter));
}

bool RingedButton::event(QEvent* event)
{
    if (m_use.note(*event))
        update();
    return QAbstractButton::event(event);
}

void RingedButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void RingedButton::paintFlatGround(QPainter& painter, double radius) const
{
    if (!isEnabled() || !(isDown() || underMouse()))
        return;
    const auto& colours = coloursOf(palette());
    painter.setPen(Qt::NoPen);
    painter.setBrush(isDown() ? colours.pressed : colours.hover);
    painter.drawRoundedRect(rect(), radius, radius);
}

void RingedButton::paintRing(QPainter& painter, const QRectF& around, double radius) const
{
    if (hasFocus() && m_use.isShown())
        paintFocusRing(painter, *this, around, radius);
}

} // namespace korvane
