#pragma once

#include "look/view/Colours.h"
#include "look/view/Symbols.h"
#include "panel/view/ClipRowView.h"

#include <QImage>
#include <QPainter>
#include <QPalette>

#include <cstdlib>
#include <string>

namespace korvane::test {

/// A row of the list, painted on the panel's ground.
struct RowFixture {
    QImage paint(const ClipRow& shown)
    {
        QImage image(348, 48, QImage::Format_ARGB32_Premultiplied);
        image.fill(coloursOf(ColourScheme::light).panel);
        QPainter painter(&image);
        view.paint(painter, image.rect(), shown, {}, palette);
        return image;
    }
    /// The row of a clip with this text.
    QImage titled(const std::string& text)
    {
        clip.text = text;
        return paint({ .clip = clip });
    }
    /// Where, within a part of the row, it differs from that of a clip without a text.
    QRect inkOfTitle(const std::string& text, const QRect& part = { 0, 0, 348, 48 })
    {
        const auto without = titled("");
        const auto image = titled(text);
        QRect ink;
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x) {
                if (image.pixel(x, y) != without.pixel(x, y))
                    ink |= QRect(x, y, 1, 1);
            }
        }
        return ink;
    }

    QPalette palette { Qt::white };
    Symbols symbols;
    ClipRowView view { symbols };
    ClipItem clip;
};

/// Whether a pixel has the colour, but for what is lost at the edge of a thin line.
inline bool hasColour(const QImage& image, const QRect& within, const QColor& colour)
{
    for (int y = within.top(); y <= within.bottom(); ++y) {
        for (int x = within.left(); x <= within.right(); ++x) {
            const auto pixel = image.pixelColor(x, y);
            if (std::abs(pixel.red() - colour.red()) < 30
                && std::abs(pixel.green() - colour.green()) < 30
                && std::abs(pixel.blue() - colour.blue()) < 30)
                return true;
        }
    }
    return false;
}

} // namespace korvane::test
