#include "platform/wayland/WaylandClient.h"

#include <poll.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <span>

namespace korvane::test {

namespace {

    /// Puts a picture on a surface that has none yet, by which it comes on the screen.
    wl_buffer* draw(const WaylandClient& client, wl_surface* surface)
    {
        constexpr std::int32_t width = 200;
        constexpr std::int32_t height = 100;
        constexpr std::int32_t bytes = width * height * 4;
        const Descriptor memory(::memfd_create("picture", MFD_CLOEXEC));
        if (::ftruncate(memory.number(), bytes) != 0)
            return nullptr;
        auto* const pool = wl_shm_create_pool(client.sharedMemory(), memory.number(), bytes);
        auto* const buffer
            = wl_shm_pool_create_buffer(pool, 0, width, height, width * 4, WL_SHM_FORMAT_XRGB8888);
        wl_shm_pool_destroy(pool);
        wl_surface_attach(surface, buffer, 0, 0);
        wl_surface_damage(surface, 0, 0, width, height);
        wl_surface_commit(surface);
        return buffer;
    }

} // namespace

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

WaylandClient::~WaylandClient()
{
    // The library forgets what is left when the connection ends, and does not free it.
    for (auto* const proxy : m_bound)
        wl_proxy_destroy(proxy);
    if (m_registry != nullptr)
        wl_registry_destroy(m_registry);
}

wl_proxy* WaylandClient::bindGlobal(const wl_interface& interface, std::uint32_t version)
{
    const auto found = m_globals.find(std::string_view(interface.name));
    if (found == m_globals.end())
        return nullptr;
    auto* const proxy = static_cast<wl_proxy*>(wl_registry_bind(
        m_registry, found->second.name, &interface, std::min(found->second.version, version)));
    m_bound.push_back(proxy);
    return proxy;
}

void WaylandClient::endProxy(wl_proxy* proxy)
{
    std::erase(m_bound, proxy);
    wl_proxy_destroy(proxy);
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

WaylandPanel::WaylandPanel(WaylandClient& client)
    : m_client(client)
    , m_surface(wl_compositor_create_surface(client.compositor()))
{
    auto* const shell = client.bind<zwlr_layer_shell_v1>(zwlr_layer_shell_v1_interface, 3);
    m_layer = zwlr_layer_shell_v1_get_layer_surface(
        shell, m_surface, nullptr, ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY, "panel");
    static constexpr zwlr_layer_surface_v1_listener listener {
        .configure =
            [](void* self, zwlr_layer_surface_v1* layer, std::uint32_t serial, std::uint32_t,
                std::uint32_t) {
                zwlr_layer_surface_v1_ack_configure(layer, serial);
                auto& panel = *static_cast<WaylandPanel*>(self);
                if (panel.m_buffer == nullptr)
                    panel.m_buffer = draw(panel.m_client, panel.m_surface);
            },
        .closed = [](void*, zwlr_layer_surface_v1*) {},
    };
    zwlr_layer_surface_v1_add_listener(m_layer, &listener, this);
    zwlr_layer_surface_v1_set_size(m_layer, 200, 100);
    zwlr_layer_surface_v1_set_keyboard_interactivity(
        m_layer, ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_EXCLUSIVE);
    wl_surface_commit(m_surface);
    for (int tries = 0; tries < 100 && m_buffer == nullptr; ++tries)
        m_client.sync();
    m_client.sync();
}

WaylandPanel::~WaylandPanel()
{
    zwlr_layer_surface_v1_destroy(m_layer);
    wl_surface_destroy(m_surface);
    if (m_buffer != nullptr)
        wl_buffer_destroy(m_buffer);
    m_client.sync();
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
                    window.m_buffer = draw(window.m_client, window.m_surface);
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
