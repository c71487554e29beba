#include "platform/wayland/qt/TestConnection.h"

#include <poll.h>

#include <algorithm>

namespace korvane::test {

TestConnection::TestConnection()
    : m_display(wl_display_connect(nullptr))
{
    static constexpr wl_registry_listener listener {
        .global =
            [](void* globals, wl_registry*, std::uint32_t name, const char* interface,
                std::uint32_t version) {
                static_cast<std::vector<Global>*>(globals)->push_back({ name, interface, version });
            },
        .global_remove = [](void*, wl_registry*, std::uint32_t) {},
    };
    m_registry = wl_display_get_registry(m_display.get());
    wl_registry_add_listener(m_registry, &listener, &m_globals);
    roundTrip();
}

void* TestConnection::bindAny(const wl_interface& interface, unsigned version)
{
    const auto found = std::ranges::find(m_globals, interface.name, &Global::interface);
    if (found == m_globals.end())
        return nullptr;
    return wl_registry_bind(m_registry, found->name, &interface, std::min(version, found->version));
}

void TestConnection::dispatch()
{
    auto* const display = m_display.get();
    while (wl_display_prepare_read(display) != 0)
        wl_display_dispatch_pending(display);
    wl_display_flush(display);
    pollfd connection { wl_display_get_fd(display), POLLIN, 0 };
    if (::poll(&connection, 1, 0) > 0)
        wl_display_read_events(display);
    else
        wl_display_cancel_read(display);
    wl_display_dispatch_pending(display);
}

} // namespace korvane::test
