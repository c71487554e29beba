#include "platform/wayland/WindowList.h"

#include <utility>

namespace korvane {

std::unique_ptr<WindowList> WindowList::open(WaylandConnection& connection, Listener listener)
{
    if (auto list = openForeignToplevelList(connection, listener))
        return list;
    return openPlasmaWindowList(connection, std::move(listener));
}

} // namespace korvane
