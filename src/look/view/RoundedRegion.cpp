#include "look/view/RoundedRegion.h"

#include <cmath>

namespace korvane {

QRegion roundedRegion(const QRect& rect, int radius)
{
    QRegion region(rect.adjusted(0, radius, 0, -radius));
    for (int row = 0; row < radius; ++row) {
        const double up = radius - row - 0.5;
        const auto inset
            = static_cast<int>(std::lround(radius - std::sqrt(radius * radius - up * up)));
        region += QRect(rect.left() + inset, rect.top() + row, rect.width() - 2 * inset, 1);
        region += QRect(rect.left() + inset, rect.bottom() - row, rect.width() - 2 * inset, 1);
    }
    return region;
}

} // namespace korvane
