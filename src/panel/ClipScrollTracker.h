#pragma once

#include "model/Signal.h"

#include <chrono>
#include <cstdint>
#include <ratio>

namespace korvane {

/// A row of the list with the gap after it, in points.
inline constexpr double approxRowHeight = 50;
/// How many rows a click on a chevron scrolls, and how long that takes, easing out.
inline constexpr int chevronScrollStep = 4;
inline constexpr std::chrono::milliseconds chevronClickDuration { 180 };
/// While the pointer rests on a chevron the list scrolls by so many points, sixty times a second.
inline constexpr double chevronHoverTickPoints = 4;
inline constexpr std::chrono::duration<std::int64_t, std::ratio<1, 60>> chevronHoverTickInterval {
    1
};

/// The way that a chevron points, and scrolls.
enum class ScrollDirection { up, down };

/// How far a list can be scrolled, in points; 0 for one that fits.
double largestScrollOffset(double contentHeight, double containerHeight);

/// Knows how far the list is scrolled and how tall it is: which chevrons there are to be, and where a
/// scroll ends. All measures are in points.
class ClipScrollTracker {
public:
    /// How far the top of the contents lies above the top of what is seen.
    double offset() const { return m_offset; }
    double contentHeight() const { return m_contentHeight; }
    /// Height of what is seen.
    double containerHeight() const { return m_containerHeight; }
    void measure(double offset, double contentHeight, double containerHeight);

    /// Whether there is more of the list in this direction: more than a hair of padding.
    bool isChevronVisible(ScrollDirection direction) const;

    /// The offset after a scroll, which ends where the list does.
    /// @param points  downward
    double offsetAfter(double points) const;

    /// A measure has changed.
    Signal<> changed;

private:
    double m_offset = 0;
    double m_contentHeight = 0;
    double m_containerHeight = 0;
};

} // namespace korvane
