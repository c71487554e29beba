#include "look/view/ApplicationIcon.h"

#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

#include <array>

namespace korvane {

namespace {

    // What window managers and our own windows show; between them the toolkit scales.
    constexpr std::array edges { 16, 32, 64, 128, 256 };

    QPixmap drawn(QSvgRenderer& renderer, int edge)
    {
        QPixmap pixmap(edge, edge);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        renderer.render(&painter);
        return pixmap;
    }

} // namespace

QIcon applicationIcon()
{
    QSvgRenderer renderer(QStringLiteral(":/icon/korvane.svg"));
    QIcon icon;
    for (const int edge : edges)
        icon.addPixmap(drawn(renderer, edge));
    return icon;
}

} // namespace korvane
