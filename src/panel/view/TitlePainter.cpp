#include "panel/view/TitlePainter.h"

#include "look/view/ElidedText.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <memory>

namespace korvane {

namespace {

    /// As much of the text as stands on one line of this width.
    std::unique_ptr<EmojiText> firstLine(
        const QString& text, const QPainter& painter, double width, EmojiPictures& pictures)
    {
        QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
        option.setTextDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
        option.setWrapMode(QTextOption::WrapAnywhere);
        auto laidOut = std::make_unique<EmojiText>(text, painter.font(), option, pictures);
        laidOut->layout().beginLayout();
        auto line = laidOut->layout().createLine();
        line.setLineWidth(std::max(width, 0.0));
        laidOut->layout().endLayout();
        return laidOut;
    }

} // namespace

void TitlePainter::draw(
    QPainter& painter, const QRectF& place, const QString& title, Qt::AlignmentFlag where)
{
    if (!emojiIn(title).empty())
        return drawWithEmoji(painter, place, title, where);
    const int direction = title.isRightToLeft() ? Qt::TextForceRightToLeft | Qt::AlignAbsolute
                                                : Qt::TextForceLeftToRight;
    painter.drawText(place,
        Qt::TextSingleLine | Qt::TextDontClip | Qt::AlignVCenter | where | direction,
        elidedText(title, QFontMetricsF(painter.font()), place.width()));
}

void TitlePainter::drawWithEmoji(
    QPainter& painter, const QRectF& place, const QString& title, Qt::AlignmentFlag where)
{
    const auto lengthOf
        = [](const EmojiText& text) { return text.layout().lineAt(0).textLength(); };

    // So many UTF-16 units are tried first, then twice as many: a row shows little of a long title.
    qsizetype units = 64;
    auto shown = firstLine(title.left(units), painter, place.width(), m_pictures);
    while (units < title.size() && lengthOf(*shown) >= units) {
        units *= 2;
        shown = firstLine(title.left(units), painter, place.width(), m_pictures);
    }
    if (lengthOf(*shown) < title.size()) {
        const QString ellipsis(QChar(0x2026));
        const double room
            = place.width() - QFontMetricsF(painter.font()).horizontalAdvance(ellipsis);
        const auto kept = firstLine(title.left(units), painter, room, m_pictures);
        shown = firstLine(title.left(lengthOf(*kept)).trimmed() + ellipsis, painter,
            std::ceil(place.width()) + 1, m_pictures);
    }
    const auto line = shown->layout().lineAt(0);
    const double before
        = where == Qt::AlignHCenter ? (place.width() - line.naturalTextWidth()) / 2 : 0;
    // On the line that a title without emoji stands on, by the measures of this screen.
    const QFontMetricsF font(painter.font(), painter.device());
    const double base = place.center().y() - font.height() / 2 + font.ascent();
    shown->drawLine(painter, 0, { place.left() + before, base - line.y() - line.ascent() });
}

} // namespace korvane
