#pragma once

#include <QColor>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QRectF>
#include <QString>

#include <string_view>

namespace korvane {

/// The program's own symbols, drawn in whatever colour and size they are asked for and kept once
/// they have been: a row that is painted again costs a copy of pixels.
class Symbols {
public:
    Symbols() = default;
    Symbols(const Symbols&) = delete;
    Symbols& operator=(const Symbols&) = delete;

    /// @param name   a file name under resources/symbols, without its ending; an unknown one gives
    ///               an empty picture
    /// @param size   edge of the square, in points
    /// @param ratio  device pixels to a point
    QPixmap pixmap(std::string_view name, double size, double ratio, const QColor& colour);
    /// Paints a symbol into the middle of a rectangle, on whole device pixels.
    void paint(QPainter& painter, std::string_view name, const QRectF& around, double size,
        const QColor& colour);

private:
    QHash<QString, QImage> m_shapes;
    QHash<QString, QPixmap> m_drawn;
};

} // namespace korvane
