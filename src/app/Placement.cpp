#include "app/Placement.h"

#include <algorithm>

namespace korvane::placement {

namespace {

    double unclampedX(const Rect& statusItem, PanelAlignment alignment)
    {
        switch (alignment) {
        case PanelAlignment::left:
            return statusItem.right() - panelWidth;
        case PanelAlignment::right:
            return statusItem.left();
        case PanelAlignment::middle:
            break;
        }
        return statusItem.middleX() - panelWidth / 2;
    }

} // namespace

double panelHeight(std::size_t clipCount, const Rect& visible)
{
    const double wanted = static_cast<double>(clipCount) * heightPerClip + heightAroundClips;
    return std::max(minimumPanelHeight, std::min(visible.height - marginToVisibleTop, wanted));
}

Rect iconAt(const Point& place, const Rect& visible)
{
    Rect icon { place.x - assumedIconSize / 2, place.y - assumedIconSize / 2, assumedIconSize,
        assumedIconSize };
    if (icon.middleY() > visible.top())
        icon.y = visible.top();
    return icon;
}

Rect iconAtEnd(const Rect& visible)
{
    return { visible.right() - screenMargin, visible.top(), 0, 0 };
}

Rect panelFrame(
    const Rect& statusItem, const Rect& visible, std::size_t clipCount, PanelAlignment alignment)
{
    const double height = panelHeight(clipCount, visible);
    // The bound is the visible frame's width, not its right edge, deliberately: a bar at the left
    // edge of the screen leaves the panel as much further from the right one.
    const double atMost = visible.width - panelWidth - screenMargin;
    const double x = std::max(screenMargin, std::min(unclampedX(statusItem, alignment), atMost));
    const double y = std::max(visible.bottom() + screenMargin, statusItem.bottom() - height);
    return { x, y, panelWidth, height };
}

Rect besidePanel(
    double wantedWidth, double wantedHeight, const std::optional<Rect>& panel, const Rect& visible)
{
    const double width = std::min(wantedWidth, visible.width - 2 * screenMargin);
    const double height = std::min(wantedHeight, visible.height - 2 * screenMargin);
    if (!panel)
        return { visible.middleX() - width / 2, visible.middleY() - height / 2, width, height };

    double x = panel->left() - width - screenMargin;
    if (x < visible.left() + screenMargin) {
        x = panel->right() + screenMargin;
        if (x + width > visible.right() - screenMargin)
            x = visible.middleX() - width / 2;
    }
    const double y = std::max(visible.bottom() + screenMargin,
        std::min(visible.top() - height - screenMargin, panel->top() - height));
    return { x, y, width, height };
}

} // namespace korvane::placement
