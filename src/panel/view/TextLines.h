#pragma once

#include <QFont>
#include <QRectF>
#include <QString>
#include <QTextLayout>

#include <vector>

class QPainter;

namespace korvane {

/// A text laid out in lines of a width. Each line feed begins a new paragraph, which is written from
/// right to left where its first letter is; a word that is longer than a line is broken anywhere.
class TextLines {
public:
    /// @param width  in points, as everything here
    /// @param tabStop  the distance of the tab stops
    TextLines(const QString& text, const QFont& font, double width, double tabStop);

    double height() const { return m_height; }
    /// Draws the lines of which some is to be seen in this part, with the painter's pen.
    /// @param part  from the corner of the text's own rectangle
    void draw(QPainter& painter, const QRectF& part) const;

private:
    struct Paragraph {
        QTextLayout layout;
        double top = 0;
        double bottom = 0;
    };

    void lay(Paragraph& paragraph, double width) const;

    std::vector<Paragraph> m_paragraphs; // from top to bottom
    double m_height = 0;
};

} // namespace korvane
