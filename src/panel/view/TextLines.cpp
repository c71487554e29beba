#include "panel/view/TextLines.h"

#include "panel/view/PanelMetrics.h"

#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace korvane {

namespace {

    QTextOption optionFor(const QString& paragraph, const TextLines::Look& look)
    {
        const bool beginsAtTheRight = look.followsScript && paragraph.isRightToLeft();
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        option.setTextDirection(beginsAtTheRight ? Qt::RightToLeft : Qt::LeftToRight);
        option.setAlignment(
            (beginsAtTheRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute);
        option.setTabStopDistance(look.tabStop);
        return option;
    }

    double heightOf(const QTextLine& line)
    {
        // Whole points, so that all lines are drawn alike.
        return std::max(std::ceil(line.height()), static_cast<double>(metrics::previewLineHeight));
    }

    void breakIntoLines(QTextLayout& layout, double width)
    {
        double y = 0;
        layout.beginLayout();
        for (auto line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(width);
            const double high = heightOf(line);
            line.setPosition({ 0, y + std::round((high - line.height()) / 2) });
            y += high;
        }
        layout.endLayout();
    }

} // namespace

TextLines::TextLines(const QString& text, const Look& look, double width, EmojiPictures& pictures)
{
    for (const auto& paragraph : text.split(u'\n'))
        addParagraph(paragraph, look.font, optionFor(paragraph, look), width, pictures);
}

/// The toolkit looks at an endless word from its beginning to its end for each line that it breaks off,
/// and whatever stands after 4096 units it takes for another word, were it half a character. So a long
/// paragraph is given to it by pieces. The last line of a piece is not full: it is the first of the
/// next.
void TextLines::addParagraph(const QString& text, const QFont& font, const QTextOption& option,
    double width, EmojiPictures& pictures)
{
    constexpr qsizetype pieceLength = 2048;
    auto length = pieceLength;
    for (qsizetype from = 0;;) {
        auto& piece = m_pieces.emplace_back(text.mid(from, length), font, option, pictures);
        auto& layout = piece.text.layout();
        breakIntoLines(layout, width);

        const bool isLast = from + length >= text.size();
        piece.lines = layout.lineCount() - (isLast ? 0 : 1);
        if (piece.lines == 0) { // marks that take no room
            m_pieces.pop_back();
            length *= 4;
            continue;
        }
        piece.top = m_height;
        for (int line = 0; line < piece.lines; ++line)
            m_height += heightOf(layout.lineAt(line));
        piece.bottom = m_height;
        if (isLast)
            return;
        from += layout.lineAt(piece.lines).textStart();
        length = pieceLength;
    }
}

void TextLines::draw(QPainter& painter, const QRectF& part) const
{
    auto piece = std::ranges::partition_point(
        m_pieces, [&part](const Piece& each) { return each.bottom <= part.top(); });
    for (; piece != m_pieces.end() && piece->top < part.bottom(); ++piece) {
        double bottom = piece->top;
        for (int number = 0; number < piece->lines && bottom < part.bottom(); ++number) {
            bottom += heightOf(piece->text.layout().lineAt(number));
            if (bottom > part.top())
                piece->text.drawLine(painter, number, { 0, piece->top });
        }
    }
}

} // namespace korvane
