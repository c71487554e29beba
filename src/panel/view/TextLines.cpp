#include "panel/view/TextLines.h"

#include "panel/view/PanelStyle.h"

#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace korvane {

TextLines::TextLines(const QString& text, const QFont& font, double width, double tabStop)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(Qt::LayoutDirectionAuto);
    option.setTabStopDistance(tabStop);

    const auto texts = text.split(u'\n');
    m_paragraphs = std::vector<Paragraph>(static_cast<std::size_t>(texts.size()));
    auto paragraph = m_paragraphs.begin();
    for (const auto& each : texts) {
        paragraph->layout.setText(each);
        paragraph->layout.setFont(font);
        paragraph->layout.setTextOption(option);
        paragraph->layout.setCacheEnabled(true); // else each painting would shape all of it again
        paragraph->top = m_height;
        lay(*paragraph, width);
        m_height = paragraph->bottom;
        ++paragraph;
    }
}

void TextLines::lay(Paragraph& paragraph, double width) const
{
    double y = 0;
    paragraph.layout.beginLayout();
    for (auto line = paragraph.layout.createLine(); line.isValid();
         line = paragraph.layout.createLine()) {
        line.setLineWidth(width);
        // Whole points, so that all lines are drawn alike.
        const double high
            = std::max(std::ceil(line.height()), static_cast<double>(metrics::previewLineHeight));
        line.setPosition({ 0, y + std::round((high - line.height()) / 2) });
        y += high;
    }
    paragraph.layout.endLayout();
    paragraph.bottom = paragraph.top + y;
}

void TextLines::draw(QPainter& painter, const QRectF& part) const
{
    auto paragraph = std::ranges::partition_point(m_paragraphs,
        [&part](const Paragraph& each) { return each.bottom <= part.top(); });
    for (; paragraph != m_paragraphs.end() && paragraph->top < part.bottom(); ++paragraph)
        paragraph->layout.draw(&painter, { 0, paragraph->top }, {}, part);
}

} // namespace korvane
