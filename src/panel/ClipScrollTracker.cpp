#include "panel/ClipScrollTracker.h"

#include <algorithm>

namespace korvane {

namespace {
    /// What the list must be scrolled by, or have left, for a chevron to be worth showing: less than
    /// the list's own padding hides nothing.
    constexpr double leastHidden = 3;
} // namespace

double largestScrollOffset(double contentHeight, double containerHeight)
{
    return std::max(contentHeight - containerHeight, 0.0);
}

void ClipScrollTracker::measure(double offset, double contentHeight, double containerHeight)
{
    const bool isSame = offset == m_offset && contentHeight == m_contentHeight
        && containerHeight == m_containerHeight;
    m_offset = offset;
    m_contentHeight = contentHeight;
    m_containerHeight = containerHeight;
    if (!isSame)
        changed();
}

bool ClipScrollTracker::isChevronVisible(ScrollDirection direction) const
{
    if (direction == ScrollDirection::up)
        return m_offset > leastHidden;
    return m_contentHeight > 0 && m_containerHeight > 0
        && m_offset + m_containerHeight < m_contentHeight - leastHidden;
}

double ClipScrollTracker::offsetAfter(double points) const
{
    return std::clamp(
        m_offset + points, 0.0, largestScrollOffset(m_contentHeight, m_containerHeight));
}

} // namespace korvane
