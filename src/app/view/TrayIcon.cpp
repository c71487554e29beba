#include "app/view/TrayIcon.h"

#include "look/view/Colours.h"
#include "look/view/Fonts.h"
#include "look/view/Symbols.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <array>

namespace korvane {

namespace {

    // The sizes that trays ask for. One that asks for another gets the nearest, scaled.
    constexpr std::array sizes { 22, 24, 32, 44 };
    constexpr int mostShown = 999;

    void paintGlyph(QPainter& painter, Symbols& symbols, std::string_view symbol, double edge)
    {
        const QRectF whole(0, 0, edge, edge);
        const double around = edge / 22.0;
        const QColor dark(0, 0, 0, 70);
        for (const double x : { -around, 0.0, around }) {
            for (const double y : { -around, 0.0, around })
                symbols.paint(painter, symbol, whole.translated(x, y), edge, dark);
        }
        symbols.paint(painter, symbol, whole, edge, QColor(0xfa, 0xfa, 0xfa));
    }

    void paintBadge(QPainter& painter, int count, double edge)
    {
        // Four digits have no room; the tool tip tells the whole number.
        const auto text = QString::number(std::min(count, mostShown));
        const double scale = edge / 22.0;
        auto font = textFont(10, QFont::Bold);
        font.setPixelSize(static_cast<int>((text.size() > 2 ? 8 : 10) * scale));
        const double height = 11 * scale;
        const double width = std::min(
            edge, std::max(height, QFontMetricsF(font).horizontalAdvance(text) + 4 * scale));
        const QRectF box(edge - width, edge - height, width, height);

        const auto& colours = coloursOf(ColourScheme::light);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colours.accent);
        painter.drawRoundedRect(box, 3 * scale, 3 * scale);
        painter.setFont(font);
        painter.setPen(colours.onAccent);
        painter.drawText(box, Qt::AlignCenter | Qt::TextDontClip, text);
    }

} // namespace

QIcon trayIcon(Symbols& symbols, std::string_view symbol, std::optional<int> count)
{
    QIcon icon;
    for (const int edge : sizes) {
        QPixmap pixmap(edge, edge);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        paintGlyph(painter, symbols, symbol, edge);
        if (count)
            paintBadge(painter, *count, edge);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace korvane
