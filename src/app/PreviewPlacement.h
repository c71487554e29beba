#pragma once

#include "app/Windows.h"
#include "model/Preferences.h"

#include <optional>

namespace korvane {

/// Where the preview goes: pure functions over rectangles in points, origin at the bottom left.
namespace previewplacement {
    inline constexpr double width = 484;
    /// Between the window's edge and the text, on every side.
    inline constexpr double inset = 12;
    /// The width in which the text is laid out.
    inline constexpr double textWidth = width - 2 * inset;
    /// What is added to the text's height.
    inline constexpr double heightAroundText = 2 * inset;
    inline constexpr double minimumHeight = 36;
    /// How much lower than the visible part of the screen the preview stays.
    inline constexpr double marginToVisibleHeight = 16;
    inline constexpr double gapToPanel = 8;
    inline constexpr double screenMargin = 4;
    /// Where the panel's list begins, downward from the panel's top edge.
    inline constexpr double listTop = 121;

    /// The user's choice, and what it refers to.
    struct Wish {
        PreviewSide side = PreviewSide::right;
        PreviewPosition position = PreviewPosition::middle;
        /// Vertical middle of the selected row, downward from the panel's top edge, where known.
        std::optional<double> rowMidY {};
    };

    /// @param textHeight  in lines of `textWidth`; rounded up to a whole point here
    double height(double textHeight, const Rect& visible);
    /// The left edge. The other side than the wished one is taken where only that has room; where
    /// none has, it is the wished one.
    double x(const Rect& panel, const Rect& visible, PreviewSide side);
    /// The bottom edge, kept within the screen.
    double y(double height, const Rect& panel, const Rect& visible, const Wish& wish);

    Rect frame(double textHeight, const Rect& panel, const Rect& visible, const Wish& wish);
} // namespace previewplacement

} // namespace korvane
