#include "app/view/PanelShadow.h"

#include "panel/view/PanelMetrics.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <qdrawutil.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace korvane {

namespace {

    constexpr int offset = 12;        // the light comes from above
    constexpr double blur = 11;       // standard deviation of the soft part
    constexpr double closeBlur = 3.5; // and of the part close to the panel
    constexpr int closeOffset = 3;
    constexpr int core = 72; // a panel of this size has a middle in which nothing changes any more

    /// How much of a step that has been blurred is covered at a distance inside it.
    double covered(double inside, double deviation)
    {
        return 0.5 * (1 + std::erf(inside / (deviation * std::sqrt(2.0))));
    }

    /// Distance from a point to the edge of a rounded rectangle at the origin, positive inside: one
    /// blurred along it is as good as one blurred in both directions, and far cheaper.
    double insideRounded(const QSize& size, double x, double y)
    {
        constexpr double radius = metrics::panelRadius;
        const double halfWidth = size.width() / 2.0;
        const double halfHeight = size.height() / 2.0;
        const double dx = std::abs(x - halfWidth) - (halfWidth - radius);
        const double dy = std::abs(y - halfHeight) - (halfHeight - radius);
        const double outside = std::hypot(std::max(dx, 0.0), std::max(dy, 0.0));
        return radius - outside - std::min(std::max(dx, dy), 0.0);
    }

    QPixmap shadowAround(const QSize& panel, double ratio, double strength)
    {
        const auto margins = PanelShadow::margins();
        const auto size = panel.grownBy(margins);
        QImage image(size * ratio, QImage::Format_ARGB32_Premultiplied);
        for (int row = 0; row < image.height(); ++row) {
            auto* line = reinterpret_cast<QRgb*>(image.scanLine(row));
            const double y = (row + 0.5) / ratio - margins.top();
            for (int column = 0; column < image.width(); ++column) {
                const double x = (column + 0.5) / ratio - margins.left();
                const double soft = covered(insideRounded(panel, x, y - offset), blur);
                const double close = covered(insideRounded(panel, x, y - closeOffset), closeBlur);
                const double under = std::clamp(insideRounded(panel, x, y) * ratio, 0.0, 1.0);
                const double alpha = strength * (0.62 * soft + 0.38 * close) * (1 - under);
                line[column] = qRgba(0, 0, 0, static_cast<int>(std::lround(alpha * 255)));
            }
        }
        auto pixmap = QPixmap::fromImage(image);
        pixmap.setDevicePixelRatio(ratio);
        return pixmap;
    }

} // namespace

void PanelShadow::paint(QPainter& painter, const QRect& panel, double strength)
{
    const auto ratio = painter.device()->devicePixelRatioF();
    // A lower panel has no such middle; it gets a picture of its own height.
    const QSize smallest = panel.size().boundedTo({ core, core });
    if (m_around.isNull() || m_around.devicePixelRatio() != ratio || m_strength != strength
        || m_smallest != smallest) {
        m_around = shadowAround(smallest, ratio, strength);
        m_strength = strength;
        m_smallest = smallest;
    }
    const int halfWidth = smallest.width() / 2 - 1;
    const int halfHeight = smallest.height() / 2 - 1;
    const QMargins half(halfWidth, halfHeight, halfWidth, halfHeight);
    const auto corners = margins() + half;
    // The picture's own margins count its pixels, the target's count points.
    const auto scaled
        = [ratio](int points) { return static_cast<int>(std::lround(points * ratio)); };
    const QMargins source(scaled(corners.left()), scaled(corners.top()), scaled(corners.right()),
        scaled(corners.bottom()));
    QPixmap pixels = m_around;
    pixels.setDevicePixelRatio(1);
    qDrawBorderPixmap(&painter, panel.marginsAdded(margins()), corners, pixels, pixels.rect(),
        source, QTileRules(Qt::StretchTile));
}

} // namespace korvane
