#include "app/PreviewPlacement.h"

#include <algorithm>
#include <cmath>

namespace korvane::previewplacement {

namespace {

    double unclampedY(double height, const Rect& panel, const Wish& wish)
    {
        if (wish.position == PreviewPosition::top)
            return panel.top() - listTop - height;
        if (wish.position == PreviewPosition::follow && wish.rowMidY)
            return panel.top() - *wish.rowMidY - height / 2;
        return panel.middleY() - height / 2;
    }

} // namespace

double height(double textHeight, const Rect& visible)
{
    const double wanted = std::ceil(textHeight) + heightAroundText;
    return std::max(minimumHeight, std::min(wanted, visible.height - marginToVisibleHeight));
}

double x(const Rect& panel, const Rect& visible, PreviewSide side)
{
    const double onTheLeft = panel.left() - width - gapToPanel;
    const double onTheRight = panel.right() + gapToPanel;
    const bool fitsLeft = visible.left() + screenMargin <= onTheLeft;
    const bool fitsRight = onTheRight + width <= visible.right() - screenMargin;
    if (side == PreviewSide::right)
        return fitsRight || !fitsLeft ? onTheRight : onTheLeft;
    return fitsLeft || !fitsRight ? onTheLeft : onTheRight;
}

double y(double height, const Rect& panel, const Rect& visible, const Wish& wish)
{
    const double atMost = visible.top() - height - screenMargin;
    const double atLeast = visible.bottom() + screenMargin;
    return std::max(std::min(unclampedY(height, panel, wish), atMost), atLeast);
}

Rect frame(double textHeight, const Rect& panel, const Rect& visible, const Wish& wish)
{
    const double high = height(textHeight, visible);
    return { x(panel, visible, wish.side), y(high, panel, visible, wish), width, high };
}

} // namespace korvane::previewplacement
