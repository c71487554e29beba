#include "settings/view/TextButton.h"

#include "look/view/Fonts.h"
#include "settings/view/SettingsColours.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>
#include <utility>

namespace korvane {

namespace {
    constexpr int buttonHeight = 24;
    constexpr int padding = 6;
    constexpr double radius = 6;
    constexpr double textSize = 11;
} // namespace

TextButton::TextButton(const QString& text, std::function<void()> clicked, QWidget* parent)
    : RingedButton(parent)
{
    setText(text);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover); // painted anew when the pointer comes and goes
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::clicked, this, std::move(clicked));
}

QSize TextButton::sizeHint() const
{
    const auto width = QFontMetricsF(textFont(textSize)).horizontalAdvance(text());
    return { static_cast<int>(std::ceil(width)) + 2 * padding, buttonHeight };
}

void TextButton::paintEvent(QPaintEvent*)
{
    const auto& colours = coloursOf(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintFlatGround(painter, radius);
    painter.setFont(textFont(textSize));
    painter.setPen(isEnabled() ? colours.secondary : settingsColoursOf(palette()).disabled);
    painter.drawText(
        rect(), Qt::AlignCenter | Qt::TextSingleLine | Qt::TextShowMnemonic, lettered(text()));
    paintRing(painter, QRectF(rect()), radius);
}

} // namespace korvane
