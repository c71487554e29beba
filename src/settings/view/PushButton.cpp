#include "settings/view/PushButton.h"

#include "look/view/Fonts.h"
#include "look/view/Outline.h"
#include "settings/view/SettingsColours.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>
#include <utility>

namespace korvane {

namespace {
    constexpr int buttonHeight = 26;
    constexpr int padding = 12;
    constexpr double radius = 6;
    constexpr double textSize = 12;

    QColor groundOf(const QAbstractButton& button, const SettingsColours& colours)
    {
        if (!button.isEnabled())
            return colours.control;
        return button.isDown()    ? colours.controlPressed
            : button.underMouse() ? colours.controlHover
                                  : colours.control;
    }
} // namespace

PushButton::PushButton(
    const QString& text, std::function<void()> clicked, Tone tone, QWidget* parent)
    : RingedButton(parent)
    , m_tone(tone)
{
    setText(text);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::clicked, this, std::move(clicked));
}

QSize PushButton::sizeHint() const
{
    const auto width = QFontMetricsF(textFont(textSize, QFont::Medium)).horizontalAdvance(text());
    return { static_cast<int>(std::ceil(width)) + 2 * padding, buttonHeight };
}

void PushButton::paintEvent(QPaintEvent*)
{
    const auto& common = coloursOf(palette());
    const auto& colours = settingsColoursOf(palette());
    const bool isChief = m_tone == Tone::chief && isEnabled();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(isChief ? (isDown() || underMouse() ? colours.chiefHover : colours.chief)
                             : groundOf(*this, colours));
    painter.drawRoundedRect(rect(), radius, radius);
    if (!isChief)
        paintOutline(painter, rect(), radius, colours.controlEdge);
    painter.setFont(textFont(textSize, QFont::Medium));
    painter.setPen(!isEnabled()           ? colours.disabled
            : isChief                     ? common.onAccent
            : m_tone == Tone::destructive ? common.redText
                                          : common.text);
    painter.drawText(
        rect(), Qt::AlignCenter | Qt::TextSingleLine | Qt::TextShowMnemonic, lettered(text()));
    paintRing(painter, QRectF(rect()), radius);
}

} // namespace korvane
