#include "settings/view/KeyBadge.h"

#include "look/view/Colours.h"
#include "look/view/Fonts.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace korvane {

namespace {
    constexpr int badgeHeight = 22;
    constexpr int padding = 8;
    constexpr double radius = 5;
    constexpr double textSize = 12;
} // namespace

KeyBadge::KeyBadge(const QString& keys, QWidget* parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setKeys(keys);
}

void KeyBadge::setKeys(const QString& keys)
{
    if (m_keys == keys)
        return;
    m_keys = keys;
    setAccessibleName(keys);
    updateGeometry();
    update();
}

QSize KeyBadge::sizeHint() const
{
    const auto width = QFontMetricsF(textFont(textSize)).horizontalAdvance(m_keys);
    return { static_cast<int>(std::ceil(width)) + 2 * padding, badgeHeight };
}

void KeyBadge::paintEvent(QPaintEvent*)
{
    const auto& colours = coloursOf(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.badge);
    painter.drawRoundedRect(rect(), radius, radius);
    painter.setFont(textFont(textSize));
    painter.setPen(colours.text);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, m_keys);
}

} // namespace korvane
