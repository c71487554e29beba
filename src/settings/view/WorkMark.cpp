#include "settings/view/WorkMark.h"

#include "look/view/Fonts.h"
#include "settings/view/SettingsColours.h"

#include <QPainter>

namespace korvane {

namespace {
    constexpr int markHeight = 32;
    constexpr double ring = 12;
    constexpr double ringWidth = 2;
    constexpr double left = 5;
    constexpr double gap = 8;
    // Three quarters of a circle, in sixteenths of a degree.
    constexpr int arcStart = 90 * 16;
    constexpr int arcLength = -270 * 16;
} // namespace

WorkMark::WorkMark(QWidget* parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void WorkMark::showWork(const QString& text)
{
    if (text == m_text)
        return;
    m_text = text;
    setAccessibleName(text);
    repaint();
}

QSize WorkMark::sizeHint() const
{
    return { 0, markHeight };
}

void WorkMark::paintEvent(QPaintEvent*)
{
    if (m_text.isEmpty())
        return;
    const auto& colours = coloursOf(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF circle(left, (markHeight - ring) / 2, ring, ring);
    painter.setPen(QPen(settingsColoursOf(palette()).track, ringWidth));
    painter.drawEllipse(circle);
    painter.setPen(QPen(colours.accent, ringWidth, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(circle, arcStart, arcLength);
    painter.setFont(textFont(11));
    painter.setPen(colours.secondary);
    painter.drawText(QRectF(rect()).adjusted(circle.right() + gap, 0, 0, 0),
        Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, m_text);
}

} // namespace korvane
