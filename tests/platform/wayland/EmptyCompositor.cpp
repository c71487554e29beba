#include "platform/wayland/EmptyCompositor.h"

#include <wayland-server.h>

#include <memory>

namespace korvane::test {

int EmptyCompositor::serve() const
{
    struct Destroy {
        void operator()(wl_display* display) const { wl_display_destroy(display); }
    };
    const std::unique_ptr<wl_display, Destroy> display(wl_display_create());
    if (!display || wl_display_add_socket(display.get(), m_name.c_str()) != 0)
        return 1;
    wl_display_init_shm(display.get());
    m_isReady.ring();
    wl_display_run(display.get());
    return 0;
}

} // namespace korvane::test
