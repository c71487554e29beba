#pragma once

#include "look/view/EmojiText.h"

#include <QRectF>
#include <QString>

class QPainter;

namespace korvane {

/// Draws a title on one line, with "…" in the place of its end where there is no room for the whole. A
/// text begins where its script does, so that its words stand in their order and what has no room is
/// cut off at its end.
class TitlePainter {
public:
    /// In the painter's font and pen.
    /// @param where  Qt::AlignLeft, as in every row whatever its script, or Qt::AlignHCenter
    void draw(QPainter& painter, const QRectF& place, const QString& title,
        Qt::AlignmentFlag where = Qt::AlignLeft);

private:
    void drawWithEmoji(
        QPainter& painter, const QRectF& place, const QString& title, Qt::AlignmentFlag where);

    EmojiPictures m_pictures;
};

} // namespace korvane
