#pragma once

#include "panel/EmptyList.h"

#include <QRectF>

#include <string_view>

class QPainter;
class QPalette;

namespace korvane {

class Symbols;
class TitlePainter;

/// Paints what is said in the place of rows: a symbol, a title and a hint, one under the other, in the
/// middle of the place or a little above it.
/// @param tabSymbol  shown where the text has none of its own
void paintEmptyList(QPainter& painter, const QRectF& place, const EmptyList& said,
    std::string_view tabSymbol, Symbols& symbols, TitlePainter& titles, const QPalette& palette);

} // namespace korvane
