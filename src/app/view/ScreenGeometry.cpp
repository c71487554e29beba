#include "app/view/ScreenGeometry.h"

#include <cmath>

namespace korvane {

namespace {
    int whole(double points)
    {
        return static_cast<int>(std::lround(points));
    }
} // namespace

Rect ScreenGeometry::upward(const QRect& onDesktop) const
{
    return { onDesktop.x() - left, top + height - onDesktop.y() - onDesktop.height(),
        static_cast<double>(onDesktop.width()), static_cast<double>(onDesktop.height()) };
}

QRect ScreenGeometry::onDesktop(const Rect& upward) const
{
    return { whole(left + upward.x), whole(top + height - upward.top()), whole(upward.width),
        whole(upward.height) };
}

} // namespace korvane
