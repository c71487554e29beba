#include "platform/wayland/qt/OutputLook.h"

#include "platform/wayland/qt/LayerShell.h"
#include "platform/wayland/qt/LayerSurface.h"

#include <QGuiApplication>
#include <QScreen>

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>

namespace korvane {

namespace {

    /// One pixel through which everything is seen.
    WaylandHandle<wl_buffer> transparentPixel(wl_shm* shm)
    {
        constexpr std::int32_t bytes = 4;
        const int memory = ::memfd_create("korvane-pixel", MFD_CLOEXEC);
        if (memory < 0 || ::ftruncate(memory, bytes) != 0)
            return nullptr;
        const WaylandHandle<wl_shm_pool> pool(wl_shm_create_pool(shm, memory, bytes));
        WaylandHandle<wl_buffer> pixel(
            wl_shm_pool_create_buffer(pool.get(), 0, 1, 1, bytes, WL_SHM_FORMAT_ARGB8888));
        ::close(memory);
        return pixel;
    }

    /// Notes the output that a surface comes on.
    void entered(void* output, wl_surface*, wl_output* on)
    {
        *static_cast<wl_output**>(output) = on;
    }
    void left(void*, wl_surface*, wl_output*) { }
    constexpr wl_surface_listener outputListener { .enter = entered, .leave = left };

    QScreen* screenOf(const wl_output* output)
    {
        const auto screens = QGuiApplication::screens();
        const auto found = std::ranges::find_if(
            screens, [output](QScreen* screen) { return LayerShell::outputOf(*screen) == output; });
        return output == nullptr || found == screens.end() ? nullptr : *found;
    }

} // namespace

std::optional<OutputLook> OutputLook::take(LayerShell& shell)
{
    const WaylandHandle<wl_surface> surface(wl_compositor_create_surface(shell.compositor()));
    wl_output* output = nullptr;
    wl_surface_add_listener(surface.get(), &outputListener, &output);
    const WaylandHandle<wl_region> nothing(wl_compositor_create_region(shell.compositor()));
    wl_surface_set_input_region(surface.get(), nothing.get());
    const auto role = LayerSurface::make(shell, *surface, { .isOverBars = false });
    if (!role)
        return std::nullopt;
    OutputLook look { role->size() };
    const auto screens = QGuiApplication::screens();
    if (screens.size() == 1) {
        look.screen = screens.front();
        return look;
    }
    const auto pixel = transparentPixel(shell.shm());
    wl_surface_attach(surface.get(), pixel.get(), 0, 0);
    wl_surface_commit(surface.get());
    if (pixel && shell.await([&output] { return output != nullptr; }))
        look.screen = screenOf(output);
    return look;
}

} // namespace korvane
