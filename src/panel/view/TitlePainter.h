#pragma once

#include "look/view/EmojiText.h"

#include <QRectF>
#include <QString>

class QPainter;

namespace korvane {

/// Draws a row's title on one line, with "…" in the place of its end where there is no room for the
/// whole. A text begins where its script does, so that its words stand in their order and what has no
/// room is cut off at its end; every title is drawn from the left edge.
class TitlePainter {
public:
    /// In the painter's font and pen.
    void draw(QPainter& painter, const QRectF& place, const QString& title);

private:
    void drawWithEmoji(QPainter& painter, const QRectF& place, const QString& title);

    EmojiPictures m_pictures;
};

} // namespace korvane
