#include "platform/wayland/WaylandClient.h"

#include <poll.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <span>

namespace korvane::test {

WaylandClient::WaylandClient()
    : m_display(wl_display_connect(nullptr))
{
    if (!m_display)
        return;
    m_registry = wl_display_get_registry(display());
    static constexpr wl_registry_listener listener {
        .global =
            [](void* self, wl_registry*, std::uint32_t name, const char* interface,
                std::uint32_t version) {
                static_cast<WaylandClient*>(self)->m_globals[interface] = { name, version };
            },
        .global_remove = [](void*, wl_registry*, std::uint32_t) {},
    };
    wl_registry_add_listener(m_registry, &listener, this);
    sync();
    m_seat = bind<wl_seat>(wl_seat_interface, 5);
    m_compositor = bind<wl_compositor>(wl_compositor_interface, 4);
    m_sharedMemory = bind<wl_shm>(wl_shm_interface, 1);
    m_shell = bind<xdg_wm_base>(xdg_wm_base_interface, 1);
    static constexpr xdg_wm_base_listener pings {
        .ping
        = [](void*, xdg_wm_base* shell, std::uint32_t serial) { xdg_wm_base_pong(shell, serial); },
    };
    if (m_shell != nullptr)
        xdg_wm_base_add_listener(m_shell, &pings, nullptr);
}

void* WaylandClient::bindGlobal(const wl_interface& interface, std::uint32_t version)
{
    const auto found = m_globals.find(std::string_view(interface.name));
    if (found == m_globals.end())
        return nullptr;
    return wl_registry_bind(
        m_registry, found->second.name, &interface, std::min(found->second.version, version));
}

void WaylandClient::listen()
{
    while (wl_display_prepare_read(display()) != 0)
        wl_display_dispatch_pending(display());
    wl_display_flush(display());
    pollfd waiting { wl_display_get_fd(display()), POLLIN, 0 };
    if (::poll(&waiting, 1, 0) > 0)
        wl_display_read_events(display());
    else
        wl_display_cancel_read(display());
    wl_display_dispatch_pending(display());
    wl_display_flush(display());
}

WaylandWindow::WaylandWindow(
    WaylandClient& client, const std::string& appId, const std::string& title)
    : m_client(client)
    , m_surface(wl_compositor_create_surface(client.compositor()))
    , m_shellSurface(xdg_wm_base_get_xdg_surface(client.shell(), m_surface))
    , m_toplevel(xdg_surface_get_toplevel(m_shellSurface))
{
    static constexpr xdg_surface_listener configured {
        .configure =
            [](void* self, xdg_surface* surface, std::uint32_t serial) {
                xdg_surface_ack_configure(surface, serial);
                auto& window = *static_cast<WaylandWindow*>(self);
                if (!window.m_isConfigured)
                    window.draw();
                window.m_isConfigured = true;
            },
    };
    xdg_surface_add_listener(m_shellSurface, &configured, this);
    static constexpr xdg_toplevel_listener changed {
        .configure =
            [](void* self, xdg_toplevel*, std::int32_t, std::int32_t, wl_array* states) {
                const std::span all(static_cast<const std::uint32_t*>(states->data),
                    states->size / sizeof(std::uint32_t));
                static_cast<WaylandWindow*>(self)->m_isActive
                    = std::ranges::find(all, std::uint32_t { XDG_TOPLEVEL_STATE_ACTIVATED })
                    != all.end();
            },
        .close = [](void*, xdg_toplevel*) {},
        .configure_bounds = [](void*, xdg_toplevel*, std::int32_t, std::int32_t) {},
        .wm_capabilities = [](void*, xdg_toplevel*, wl_array*) {},
    };
    xdg_toplevel_add_listener(m_toplevel, &changed, this);
    if (!appId.empty())
        xdg_toplevel_set_app_id(m_toplevel, appId.c_str());
    if (!title.empty())
        xdg_toplevel_set_title(m_toplevel, title.c_str());
    wl_surface_commit(m_surface);
    for (int tries = 0; tries < 100 && !m_isConfigured; ++tries)
        m_client.sync();
    m_client.sync();
}

WaylandWindow::~WaylandWindow()
{
    xdg_toplevel_destroy(m_toplevel);
    xdg_surface_destroy(m_shellSurface);
    wl_surface_destroy(m_surface);
    if (m_buffer != nullptr)
        wl_buffer_destroy(m_buffer);
    m_client.sync();
}

void WaylandWindow::draw()
{
    constexpr std::int32_t width = 200;
    constexpr std::int32_t height = 100;
    constexpr std::int32_t bytes = width * height * 4;
    const Descriptor memory(::memfd_create("window", MFD_CLOEXEC));
    if (::ftruncate(memory.number(), bytes) != 0)
        return;
    auto* const pool = wl_shm_create_pool(m_client.sharedMemory(), memory.number(), bytes);
    m_buffer = wl_shm_pool_create_buffer(pool, 0, width, height, width * 4, WL_SHM_FORMAT_XRGB8888);
    wl_shm_pool_destroy(pool);
    wl_surface_attach(m_surface, m_buffer, 0, 0);
    wl_surface_damage(m_surface, 0, 0, width, height);
    wl_surface_commit(m_surface);
}

bool WaylandWindow::isActive()
{
    m_client.listen();
    return m_isActive;
}

void WaylandWindow::setTitle(const std::string& title)
{
    xdg_toplevel_set_title(m_toplevel, title.c_str());
    m_client.sync();
}

} // namespace korvane::test
