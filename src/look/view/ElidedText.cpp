#include "look/view/ElidedText.h"

#include <QTextBoundaryFinder>

namespace korvane {

QString elidedText(const QString& text, const QFontMetricsF& font, double width)
{
    // So many UTF-16 units are tried first, then twice as many.
    constexpr qsizetype firstTry = 32;
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, text);
    for (qsizetype units = firstTry; units < text.size(); units *= 2) {
        characters.setPosition(units);
        const auto end = characters.isAtBoundary() ? units : characters.toNextBoundary();
        if (end < 0 || end >= text.size())
            break;
        // What has no room already has none with more after it.
        if (const auto beginning = text.left(end); font.horizontalAdvance(beginning) > width)
            return font.elidedText(beginning, Qt::ElideRight, width);
    }
    return font.elidedText(text, Qt::ElideRight, width);
}

} // namespace korvane
