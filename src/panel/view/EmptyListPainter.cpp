#include "panel/view/EmptyListPainter.h"

#include "look/view/Colours.h"
#include "look/view/Fonts.h"
#include "look/view/Symbols.h"
#include "panel/view/TitlePainter.h"

#include <QPainter>
#include <QPalette>

#include <cmath>

namespace korvane {

namespace {

    constexpr double symbolSize = 22;
    constexpr double symbolGap = 7;
    constexpr double titleHeight = 18;
    constexpr double hintHeight = 16;
    constexpr double wholeHeight = symbolSize + symbolGap + titleHeight + hintHeight;
    constexpr double sidePadding = 20;
    /// How much of the free room stands above: the eye's middle is higher than the ruler's.
    constexpr double shareAbove = 0.45;

} // namespace

void paintEmptyList(QPainter& painter, const QRectF& place, const EmptyList& said,
    std::string_view tabSymbol, Symbols& symbols, TitlePainter& titles, const QPalette& palette)
{
    const auto& colours = coloursOf(palette);
    const auto line
        = [&, y = place.top() + std::round((place.height() - wholeHeight) * shareAbove)](
              double from, double height) {
              return QRectF(
                  place.left() + sidePadding, y + from, place.width() - 2 * sidePadding, height);
          };
    const auto write
        = [&](const QRectF& where, const QFont& font, const QColor& colour, std::string_view text) {
              painter.setFont(font);
              painter.setPen(colour);
              titles.draw(painter, where, QString::fromUtf8(text), Qt::AlignHCenter);
          };
    symbols.paint(painter, said.symbol.value_or(tabSymbol), line(0, symbolSize), symbolSize,
        colours.secondary);
    const auto title = line(symbolSize + symbolGap, titleHeight);
    write(title, textFont(13, QFont::Medium), colours.text, said.title);
    write({ title.left(), title.bottom(), title.width(), hintHeight }, textFont(11),
        colours.secondary, said.hint);
}

} // namespace korvane
