#include "settings/view/SymbolButton.h"

#include "look/view/Fonts.h"
#include "look/view/Symbols.h"
#include "settings/view/SettingsColours.h"

#include <QPainter>

#include <utility>

namespace korvane {

namespace {
    constexpr double radius = 6;
    constexpr double symbolSize = 18;
    constexpr double textSize = 13;
} // namespace

SymbolButton::SymbolButton(Symbols& symbols, std::string_view symbol, const QString& toolTip,
    std::function<void()> clicked, QWidget* parent)
    : RingedButton(parent)
    , m_symbols(symbols)
    , m_symbol(symbol)
{
    setToolTip(toolTip);
    setAccessibleName(toolTip);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::clicked, this, std::move(clicked));
}

void SymbolButton::paintEvent(QPaintEvent*)
{
    const auto& colours = coloursOf(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintFlatGround(painter, radius);
    const auto ink = isEnabled() ? colours.secondary : settingsColoursOf(palette()).disabled;
    if (isLetterShown()) {
        painter.setFont(textFont(textSize, QFont::DemiBold));
        painter.setPen(ink);
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, lettered(letter()));
    } else {
        m_symbols.paint(painter, m_symbol, rect(), symbolSize, ink);
    }
    paintRing(painter, QRectF(rect()), radius);
}

} // namespace korvane
