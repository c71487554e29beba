#include "platform/x11/X11Monitors.h"

#include "platform/x11/Struts.h"
#include "platform/x11/X11Connection.h"

#include <xcb/randr.h>

#include <algorithm>
#include <cstdint>

namespace korvane {

namespace {

    bool hasMonitorRequests(X11Connection& connection)
    {
        if (!connection.extension(&xcb_randr_id))
            return false;
        const auto version = connection.reply(
            xcb_randr_query_version_reply, xcb_randr_query_version(connection.get(), 1, 5));
        return version
            && (version->major_version > 1
                || (version->major_version == 1 && version->minor_version >= 5));
    }

    std::int64_t squareDistance(const PixelRect& rect, int x, int y)
    {
        const std::int64_t dx = std::max({ rect.x - x, 0, x - (rect.right() - 1) });
        const std::int64_t dy = std::max({ rect.y - y, 0, y - (rect.bottom() - 1) });
        return dx * dx + dy * dy;
    }

} // namespace

X11Monitors::X11Monitors(X11Connection& connection)
    : m_connection(connection)
    , m_hasMonitors(hasMonitorRequests(connection))
{
}

PixelRect X11Monitors::screen()
{
    const auto geometry = m_connection.reply(
        xcb_get_geometry_reply, xcb_get_geometry(m_connection.get(), m_connection.root()));
    return geometry ? PixelRect { 0, 0, geometry->width, geometry->height } : PixelRect {};
}

std::vector<PixelRect> X11Monitors::monitors(const PixelRect& screen)
{
    std::vector<PixelRect> monitors;
    if (m_hasMonitors) {
        const auto reply = m_connection.reply(xcb_randr_get_monitors_reply,
            xcb_randr_get_monitors(m_connection.get(), m_connection.root(), 1));
        if (reply)
            for (auto each = xcb_randr_get_monitors_monitors_iterator(reply.get()); each.rem > 0;
                 xcb_randr_monitor_info_next(&each))
                if (each.data->width > 0 && each.data->height > 0)
                    monitors.push_back(
                        { each.data->x, each.data->y, each.data->width, each.data->height });
    }
    if (monitors.empty())
        monitors.push_back(screen);
    return monitors;
}

MonitorArea X11Monitors::areaAt(int x, int y)
{
    const auto whole = screen();
    const auto all = monitors(whole);
    const auto nearest = std::ranges::min_element(
        all, {}, [x, y](const PixelRect& each) { return squareDistance(each, x, y); });
    const auto struts = readStruts(m_connection);
    return { *nearest, workArea(*nearest, whole, struts) };
}

} // namespace korvane
