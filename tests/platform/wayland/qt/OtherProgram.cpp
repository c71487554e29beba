#include "platform/wayland/qt/OtherProgram.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <span>

namespace korvane::test {

OtherSurface::OtherSurface(std::uint32_t colour)
    : m_shm(m_connection.bind<wl_shm>(wl_shm_interface, 1))
    , m_surface(wl_compositor_create_surface(
          m_connection.bind<wl_compositor>(wl_compositor_interface, 4)))
    , m_colour(colour)
{
}

void OtherSurface::paint(int width, int height)
{
    const int pixels = width * height;
    const auto bytes = static_cast<std::size_t>(pixels) * sizeof(std::uint32_t);
    const int memory = ::memfd_create("other", MFD_CLOEXEC);
    if (::ftruncate(memory, static_cast<off_t>(bytes)) != 0)
        return;
    auto* const mapped = ::mmap(nullptr, bytes, PROT_WRITE, MAP_SHARED, memory, 0);
    std::ranges::fill(
        std::span(static_cast<std::uint32_t*>(mapped), static_cast<std::size_t>(pixels)), m_colour);
    ::munmap(mapped, bytes);
    auto* const pool = wl_shm_create_pool(m_shm, memory, static_cast<std::int32_t>(bytes));
    auto* const buffer
        = wl_shm_pool_create_buffer(pool, 0, width, height, width * 4, WL_SHM_FORMAT_ARGB8888);
    wl_shm_pool_destroy(pool);
    ::close(memory);
    wl_surface_attach(m_surface, buffer, 0, 0);
    wl_surface_damage(m_surface, 0, 0, width, height);
}

OtherWindow::OtherWindow()
{
    static constexpr xdg_surface_listener surfaceListener {
        .configure =
            [](void* self, xdg_surface* surface, std::uint32_t serial) {
                xdg_surface_ack_configure(surface, serial);
                static_cast<OtherWindow*>(self)->m_isConfigured = true;
            },
    };
    static constexpr wl_keyboard_listener keyboardListener {
        .keymap
        = [](void*, wl_keyboard*, std::uint32_t, int keymap, std::uint32_t) { ::close(keymap); },
        .enter = [](void* self, wl_keyboard*, std::uint32_t, wl_surface*,
                     wl_array*) { static_cast<OtherWindow*>(self)->m_hasKeyboard = true; },
        .leave = [](void* self, wl_keyboard*, std::uint32_t,
                     wl_surface*) { static_cast<OtherWindow*>(self)->m_hasKeyboard = false; },
        .key
        = [](void*, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {},
        .modifiers = [](void*, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t,
                         std::uint32_t, std::uint32_t) {},
        .repeat_info = [](void*, wl_keyboard*, std::int32_t, std::int32_t) {},
    };
    static constexpr wl_pointer_listener pointerListener {
        .enter = [](void*, wl_pointer*, std::uint32_t, wl_surface*, wl_fixed_t, wl_fixed_t) {},
        .leave = [](void*, wl_pointer*, std::uint32_t, wl_surface*) {},
        .motion = [](void*, wl_pointer*, std::uint32_t, wl_fixed_t, wl_fixed_t) {},
        .button =
            [](void* self, wl_pointer*, std::uint32_t, std::uint32_t, std::uint32_t,
                std::uint32_t state) {
                static_cast<OtherWindow*>(self)->m_presses += static_cast<int>(state);
            },
        .axis = [](void*, wl_pointer*, std::uint32_t, std::uint32_t, wl_fixed_t) {},
        .frame = nullptr,
        .axis_source = nullptr,
        .axis_stop = nullptr,
        .axis_discrete = nullptr,
        .axis_value120 = nullptr,
    };
    auto& connection = m_surface.connection();
    auto* const seat = connection.bind<wl_seat>(wl_seat_interface, 1);
    wl_keyboard_add_listener(wl_seat_get_keyboard(seat), &keyboardListener, this);
    wl_pointer_add_listener(wl_seat_get_pointer(seat), &pointerListener, this);
    auto* const base = connection.bind<xdg_wm_base>(xdg_wm_base_interface, 1);
    auto* const surface = xdg_wm_base_get_xdg_surface(base, m_surface.get());
    xdg_surface_add_listener(surface, &surfaceListener, this);
    auto* const window = xdg_surface_get_toplevel(surface);
    xdg_toplevel_set_title(window, "other");
    xdg_toplevel_set_app_id(window, "org.example.other");
    wl_surface_commit(m_surface.get());
    while (!m_isConfigured)
        connection.roundTrip();
    m_surface.paint(640, 480);
    wl_surface_commit(m_surface.get());
    connection.roundTrip();
}

bool OtherWindow::hasKeyboard()
{
    m_surface.connection().dispatch();
    return m_hasKeyboard;
}

int OtherWindow::presses()
{
    m_surface.connection().roundTrip();
    return m_presses;
}

OtherBar::OtherBar(zwlr_layer_surface_v1_anchor edge)
{
    static constexpr zwlr_layer_surface_v1_listener listener {
        .configure =
            [](void* self, zwlr_layer_surface_v1* role, std::uint32_t serial, std::uint32_t width,
                std::uint32_t) {
                zwlr_layer_surface_v1_ack_configure(role, serial);
                static_cast<OtherBar*>(self)->m_width = static_cast<int>(width);
            },
        .closed = [](void*, zwlr_layer_surface_v1*) {},
    };
    auto& connection = m_surface.connection();
    auto* const shell = connection.bind<zwlr_layer_shell_v1>(zwlr_layer_shell_v1_interface, 1);
    auto* const role = zwlr_layer_shell_v1_get_layer_surface(
        shell, m_surface.get(), nullptr, ZWLR_LAYER_SHELL_V1_LAYER_TOP, "bar");
    zwlr_layer_surface_v1_add_listener(role, &listener, this);
    zwlr_layer_surface_v1_set_size(role, 0, thickness);
    zwlr_layer_surface_v1_set_anchor(
        role, edge | ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT | ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT);
    zwlr_layer_surface_v1_set_exclusive_zone(role, thickness);
    wl_surface_commit(m_surface.get());
    while (m_width == 0)
        connection.roundTrip();
    m_surface.paint(m_width, thickness);
    wl_surface_commit(m_surface.get());
    connection.roundTrip();
}

} // namespace korvane::test
