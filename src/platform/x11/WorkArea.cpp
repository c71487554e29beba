#include "platform/x11/WorkArea.h"

#include <algorithm>

namespace korvane {

namespace {

    /// A stretch of one axis; the end is excluded.
    struct Stretch {
        std::int64_t start;
        std::int64_t end;
    };

    // Bars that know nothing of partial struts leave the ends at zero and mean the whole edge.
    bool meets(const Strut::Edge& edge, Stretch along)
    {
        if (edge.start == 0 && edge.end == 0)
            return true;
        return edge.start < along.end && edge.end >= along.start;
    }

    // How deep the strut reaches into the monitor from where it enters it; 0 where it stops short of
    // the monitor or goes all the way through.
    int inset(const Strut::Edge& edge, std::int64_t distanceToMonitor, int size)
    {
        const auto depth = std::int64_t { edge.depth } - distanceToMonitor;
        return depth > 0 && depth < size ? static_cast<int>(depth) : 0;
    }

    /// What the struts take at the two ends of one axis.
    struct Insets {
        int near = 0;
        int far = 0;

        // Each strut is weighed against what the ones before it left.
        void take(int atNear, int atFar, int size)
        {
            if (const int wanted = std::max(near, atNear); wanted + far < size)
                near = wanted;
            if (const int wanted = std::max(far, atFar); near + wanted < size)
                far = wanted;
        }
    };

} // namespace

PixelRect workArea(const PixelRect& monitor, const PixelRect& screen, std::span<const Strut> struts)
{
    const Stretch columns { monitor.x, monitor.right() };
    const Stretch rows { monitor.y, monitor.bottom() };
    const auto depthOf
        = [](const Strut::Edge& edge, Stretch along, std::int64_t distance, int size) {
              return meets(edge, along) ? inset(edge, distance, size) : 0;
          };
    Insets across;
    Insets down;
    for (const auto& strut : struts) {
        across.take(depthOf(strut.left, rows, monitor.x - screen.x, monitor.width),
            depthOf(strut.right, rows, screen.right() - monitor.right(), monitor.width),
            monitor.width);
        down.take(depthOf(strut.top, columns, monitor.y - screen.y, monitor.height),
            depthOf(strut.bottom, columns, screen.bottom() - monitor.bottom(), monitor.height),
            monitor.height);
    }
    return { monitor.x + across.near, monitor.y + down.near,
        monitor.width - across.near - across.far, monitor.height - down.near - down.far };
}

} // namespace korvane
