#pragma once

#include "look/view/EmojiText.h"

#include <QFont>
#include <QRectF>
#include <QString>

#include <deque>

class QPainter;
class QTextOption;

namespace korvane {

/// A text laid out in lines of a width. Each line feed begins a new paragraph; a word that is longer
/// than a line is broken anywhere. The time that this takes grows with the text and no faster,
/// whatever the text is like.
class TextLines {
public:
    struct Look {
        QFont font;
        double tabStop = 0; ///< distance of the tab stops
        /// Paragraphs whose first letter is of a script that is written from right to left begin at
        /// the right; otherwise all begin at the left, as lines of code do.
        bool followsScript = true;
    };

    /// @param width  in points, as everything here
    TextLines(const QString& text, const Look& look, double width, EmojiPictures& pictures);

    double height() const { return m_height; }
    /// Draws the lines of which some is to be seen in this part, with the painter's pen.
    /// @param part  from the corner of the text's own rectangle
    void draw(QPainter& painter, const QRectF& part) const;

private:
    /// A paragraph, or a number of lines of a long one.
    struct Piece {
        Piece(const QString& part, const QFont& font, const QTextOption& option,
            EmojiPictures& pictures)
            : text(part, font, option, pictures)
        {
        }

        EmojiText text;
        int lines = 0; ///< so many of the layout's first ones
        double top = 0;
        double bottom = 0;
    };

    void addParagraph(const QString& text, const QFont& font, const QTextOption& option,
        double width, EmojiPictures& pictures);

    std::deque<Piece> m_pieces; // from top to bottom
    double m_height = 0;
};

} // namespace korvane
