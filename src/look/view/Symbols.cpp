#include "look/view/Symbols.h"

#include <QFile>
#include <QImage>
#include <QPaintDevice>
#include <QSvgRenderer>

#include <cmath>

namespace korvane {

namespace {

    QPixmap draw(const QString& name, double size, double ratio, const QColor& colour)
    {
        QFile file(QStringLiteral(":/symbols/%1.svg").arg(name));
        if (!file.open(QIODevice::ReadOnly))
            return {};
        auto drawing = file.readAll();
        drawing.replace("currentColor", "#000000");
        QSvgRenderer renderer(drawing);

        const auto edge = static_cast<int>(std::lround(size * ratio));
        // The toolkit draws strokes thinner than a pixel as broken hairlines; in a larger drawing they
        // are wider than one, and what the larger drawing covers of each pixel is the stroke's share.
        constexpr int finer = 8;
        QImage drawn(QSize(edge, edge) * finer, QImage::Format_ARGB32_Premultiplied);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        renderer.render(&painter);
        // What the drawing covers takes the colour; how much it covers stays.
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(drawn.rect(), colour);
        painter.end();
        auto pixmap = QPixmap::fromImage(
            drawn.scaled(edge, edge, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        pixmap.setDevicePixelRatio(ratio);
        return pixmap;
    }

} // namespace

QPixmap Symbols::pixmap(std::string_view name, double size, double ratio, const QColor& colour)
{
    const auto file = QString::fromUtf8(name);
    const auto key = QStringLiteral("%1 %2 %3 %4")
                         .arg(file, QString::number(size), QString::number(ratio),
                             QString::number(colour.rgba(), 16));
    const auto known = m_drawn.constFind(key);
    if (known != m_drawn.constEnd())
        return *known;
    return *m_drawn.insert(key, draw(file, size, ratio, colour));
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
