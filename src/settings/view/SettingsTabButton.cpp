#include "settings/view/SettingsTabButton.h"

#include "look/view/Fonts.h"
#include "look/view/Symbols.h"
#include "settings/view/SettingsColours.h"

#include <QFontMetricsF>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace korvane {

namespace {
    constexpr double radius = 8;
    constexpr double symbolSize = 20;
    constexpr double symbolTop = 8;
    constexpr double textTop = 31;
    constexpr double textHeight = 15;
    constexpr double textSize = 11;
    constexpr int padding = 8;

    QString titleText(SettingsTab tab)
    {
        return QString::fromUtf8(titleOf(tab));
    }
} // namespace

SettingsTabButton::SettingsTabButton(SettingsTab tab, Symbols& symbols, QWidget* parent)
    : RingedButton(parent)
    , m_tab(tab)
    , m_symbols(symbols)
{
    const auto title = titleText(tab);
    setAccessibleName(title);
    setToolTip(title);
    setCheckable(true);
    setAutoExclusive(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setLetter(title.front()); // they differ
}

QSize SettingsTabButton::sizeHint() const
{
    const auto width
        = QFontMetricsF(textFont(textSize, QFont::DemiBold)).horizontalAdvance(titleText(m_tab));
    return { std::max(leastWidth, static_cast<int>(std::ceil(width)) + 2 * padding), wholeHeight };
}

/// Tabs change when they are pressed. The press takes the keyboard from a field, too, which may bring up a
/// question over the window: the button would not hear any more that it is let go.
void SettingsTabButton::mousePressEvent(QMouseEvent* event)
{
    RingedButton::mousePressEvent(event);
    if (event->button() == Qt::LeftButton)
        click();
}

void SettingsTabButton::paintEvent(QPaintEvent*)
{
    const auto& common = coloursOf(palette());
    const auto& colours = settingsColoursOf(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isLit = isDown() || underMouse();
    if (isChecked() || isLit) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(isDown() ? common.pressed
                : isChecked()     ? colours.chosenTab
                                  : common.hover);
        painter.drawRoundedRect(rect(), radius, radius);
    }
    const auto ink = isChecked() ? colours.chosenTabText : common.secondary;
    const QRectF head((width() - symbolSize) / 2, symbolTop, symbolSize, symbolSize);
    m_symbols.paint(painter, symbolOf(m_tab), head, symbolSize, ink);

    painter.setFont(textFont(textSize, isChecked() ? QFont::DemiBold : QFont::Normal));
    painter.setPen(ink);
    const QRectF line(0, textTop, width(), textHeight);
    painter.drawText(line, Qt::AlignCenter | Qt::TextSingleLine | Qt::TextShowMnemonic,
        lettered(titleText(m_tab)));
    paintRing(painter, QRectF(rect()), radius);
}

} // namespace korvane
