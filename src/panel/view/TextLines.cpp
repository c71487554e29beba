#include "panel/view/TextLines.h"

#include "panel/view/PanelStyle.h"

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

    /// @return the height of the whole
    double lay(QTextLayout& layout, double width)
    {
        double y = 0;
        layout.beginLayout();
        for (auto line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(width);
            // Whole points, so that all lines are drawn alike.
            const double high = std::max(
                std::ceil(line.height()), static_cast<double>(metrics::previewLineHeight));
            line.setPosition({ 0, y + std::round((high - line.height()) / 2) });
            y += high;
        }
        layout.endLayout();
        return y;
    }

} // namespace

TextLines::TextLines(const QString& text, const Look& look, double width)
{
    const auto texts = text.split(u'\n');
    m_paragraphs = std::vector<Paragraph>(static_cast<std::size_t>(texts.size()));
    auto paragraph = m_paragraphs.begin();
    for (const auto& each : texts) {
        paragraph->layout.setText(each);
        paragraph->layout.setFont(look.font);
        paragraph->layout.setTextOption(optionFor(each, look));
        paragraph->layout.setCacheEnabled(true); // else each painting would shape all of it again
        paragraph->top = m_height;
        m_height += lay(paragraph->layout, width);
        paragraph->bottom = m_height;
        ++paragraph;
    }
}

void TextLines::draw(QPainter& painter, const QRectF& part) const
{
    auto paragraph = std::ranges::partition_point(m_paragraphs,
        [&part](const Paragraph& each) { return each.bottom <= part.top(); });
    for (; paragraph != m_paragraphs.end() && paragraph->top < part.bottom(); ++paragraph)
        paragraph->layout.draw(&painter, { 0, paragraph->top }, {}, part);
}

} // namespace korvane
