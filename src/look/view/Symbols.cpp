#include "look/view/Symbols.h"

#include <QFile>
#include <QImage>
#include <QPaintDevice>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvane {

namespace {

    /// How much of each pixel of a square of `edge` pixels a symbol covers.
    QImage drawShape(const QString& name, int edge)
    {
        QFile file(QStringLiteral(":/symbols/%1.svg").arg(name));
        if (!file.open(QIODevice::ReadOnly))
            return {};
        auto drawing = file.readAll();
        drawing.replace("currentColor", "#000000");
        QSvgRenderer renderer(drawing);

        // The toolkit draws strokes thinner than a pixel as broken hairlines; in a larger drawing they
        // are wider than one, and what the larger drawing covers of each pixel is the stroke's share.
        constexpr int fineEdge = 96; // where a stroke is six pixels wide
        const int finer = std::max(2, fineEdge / std::max(edge, 1));
        QImage drawn(QSize(edge, edge) * finer, QImage::Format_ARGB32_Premultiplied);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        renderer.render(&painter);
        painter.end();
        return drawn.scaled(edge, edge, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }

    QPixmap tinted(QImage shape, double ratio, const QColor& colour)
    {
        if (shape.isNull())
            return {};
        QPainter painter(&shape);
        // What the drawing covers takes the colour; how much it covers stays.
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(shape.rect(), colour);
        painter.end();
        auto pixmap = QPixmap::fromImage(std::move(shape));
        pixmap.setDevicePixelRatio(ratio);
        return pixmap;
    }

} // namespace

QPixmap Symbols::pixmap(std::string_view name, double size, double ratio, const QColor& colour)
{
    const auto edge = static_cast<int>(std::lround(size * ratio));
    const auto file = QString::fromUtf8(name);
    const auto shapeKey = QStringLiteral("%1 %2").arg(file).arg(edge);
    const auto key = QStringLiteral("%1 %2 %3").arg(shapeKey).arg(ratio).arg(colour.rgba(), 0, 16);
    if (const auto known = m_drawn.constFind(key); known != m_drawn.constEnd())
        return *known;
    if (!m_shapes.contains(shapeKey))
        m_shapes.insert(shapeKey, drawShape(file, edge));
    return *m_drawn.insert(key, tinted(m_shapes[shapeKey], ratio, colour));
}

void Symbols::paint(QPainter& painter, std::string_view name, const QRectF& around, double size,
    const QColor& colour)
{
    const auto ratio = painter.device()->devicePixelRatioF();
    const auto middle = around.center();
    const auto snapped = [ratio](double at) { return std::round(at * ratio) / ratio; };
    painter.drawPixmap(QPointF(snapped(middle.x() - size / 2), snapped(middle.y() - size / 2)),
        pixmap(name, size, ratio, colour));
}

} // namespace korvane
