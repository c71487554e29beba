#pragma once

#include "app/Windows.h"
#include "model/Preferences.h"

#include <cstddef>
#include <optional>

namespace korvane {

/// Where our windows go: pure functions over rectangles in points, origin at the bottom left.
namespace placement {
    inline constexpr double panelWidth = 360;
    inline constexpr double initialPanelHeight = 480;
    inline constexpr double heightPerClip = 50;
    inline constexpr double heightAroundClips = 170;
    inline constexpr double minimumPanelHeight = 250;
    inline constexpr double marginToVisibleTop = 20;
    inline constexpr double screenMargin = 8;
    /// What is assumed of the screen where there is none.
    inline constexpr Rect assumedVisibleFrame { 0, 0, 1440, 900 };

    /// How large an icon is taken to be where the tray does not tell.
    inline constexpr double assumedIconSize = 22;

    /// The rectangle of a status item of which only a place on it is known. An icon is in a bar, and the
    /// panel hangs from the bar's edge.
    Rect iconAt(const Point& place, const Rect& visible);
    /// The same where nothing is known of it: at the right end of the visible frame's top edge.
    Rect iconAtEnd(const Rect& visible);

    /// As high as the clips need, between the minimum and what the screen has room for.
    double panelHeight(std::size_t clipCount, const Rect& visible);

    /// The panel hangs under the status item.
    Rect panelFrame(const Rect& statusItem, const Rect& visible, std::size_t clipCount,
        PanelAlignment alignment);

    /// The place of a window of the given size beside the open panel: on its left where there is
    /// room, else on its right, else in the middle; without a panel in the middle of the screen. Where
    /// the screen has no room for that size, the window is as large as there is room.
    Rect besidePanel(
        double width, double height, const std::optional<Rect>& panel, const Rect& visible);
} // namespace placement

} // namespace korvane
