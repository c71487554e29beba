#pragma once

#include <cstdint>
#include <span>

namespace korvane {

/// A rectangle on the X screen, in pixels, with the origin at the top left and y downward.
struct PixelRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    int right() const { return x + width; }
    int bottom() const { return y + height; }
    bool contains(int px, int py) const
    {
        return px >= x && px < right() && py >= y && py < bottom();
    }

    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

/// The room that a bar keeps free of windows, as it says in _NET_WM_STRUT_PARTIAL (EWMH). All is
/// measured on the whole screen, not on a monitor, and any program may have written it.
struct Strut {
    /// The room at an edge of the screen, how deep it is, and from where to where it reaches along
    /// that edge (both included).
    struct Edge {
        std::uint32_t depth = 0;
        std::uint32_t start = 0;
        std::uint32_t end = 0;
    };
    Edge left {};
    Edge right {};
    Edge top {};
    Edge bottom {};
};

/// What the struts leave of a monitor. A strut takes room from the monitor in which it ends, because
/// it must reach over the others to get there; one that would leave nothing is not believed.
/// @param screen  the whole X screen
PixelRect workArea(
    const PixelRect& monitor, const PixelRect& screen, std::span<const Strut> struts);

} // namespace korvane
