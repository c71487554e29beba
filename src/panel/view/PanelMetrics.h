#pragma once

#include "look/view/RoundedRegion.h"

namespace korvane {

/// The panel's measures, in points.
namespace metrics {
    inline constexpr int panelWidth = 360;
    inline constexpr int panelRadius = windowRadius;

    inline constexpr int headerHeight = 42;
    inline constexpr int searchHeight = 38;
    inline constexpr int tabsHeight = 41;
    inline constexpr int footerHeight = 43;
    /// Where the list begins, downward from the panel's top edge.
    inline constexpr int listTop = headerHeight + searchHeight + tabsHeight;

    inline constexpr int rowHeight = 48;
    inline constexpr int rowGap = 2;
    inline constexpr int rowPitch = rowHeight + rowGap;
    inline constexpr int listPaddingX = 6;
    inline constexpr int listPaddingY = 4;
    inline constexpr int rowRadius = 6;

    /// Between the preview's edge and its text.
    inline constexpr int previewInset = 12;
    /// A line of the preview is at least so high; one with a tall script is higher.
    inline constexpr int previewLineHeight = 18;

    // The height that the shell adds to the rows of the list: what stands above and below it, and
    // the gap that the last row does not have.
    static_assert(listTop + footerHeight + 2 * listPaddingY - rowGap == 170);
} // namespace metrics

} // namespace korvane
