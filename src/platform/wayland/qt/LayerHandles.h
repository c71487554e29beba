#pragma once

#include <wayland-client.h>
#include <wlr-layer-shell-unstable-v1-client-protocol.h>
#include <xdg-shell-client-protocol.h>

#include <memory>

namespace korvane {

/// Ends a Wayland object by the request, or the function of the library, that it is ended with.
struct WaylandEnd {
    void operator()(wl_event_queue* queue) const { wl_event_queue_destroy(queue); }
    void operator()(wl_registry* registry) const { wl_registry_destroy(registry); }
    void operator()(wl_callback* callback) const { wl_callback_destroy(callback); }
    void operator()(wl_compositor* compositor) const { wl_compositor_destroy(compositor); }
    void operator()(wl_shm* shm) const { wl_shm_destroy(shm); }
    void operator()(wl_shm_pool* pool) const { wl_shm_pool_destroy(pool); }
    void operator()(wl_buffer* buffer) const { wl_buffer_destroy(buffer); }
    void operator()(wl_region* region) const { wl_region_destroy(region); }
    void operator()(wl_surface* surface) const { wl_surface_destroy(surface); }
    void operator()(zwlr_layer_shell_v1* shell) const
    {
        // Of version 3 on it has a request for its end; older ones are only forgotten on our side.
        auto* const proxy = reinterpret_cast<wl_proxy*>(shell);
        if (wl_proxy_get_version(proxy) >= ZWLR_LAYER_SHELL_V1_DESTROY_SINCE_VERSION)
            zwlr_layer_shell_v1_destroy(shell);
        else
            wl_proxy_destroy(proxy);
    }
    void operator()(zwlr_layer_surface_v1* role) const { zwlr_layer_surface_v1_destroy(role); }
    void operator()(xdg_wm_base* base) const { xdg_wm_base_destroy(base); }
    void operator()(xdg_positioner* positioner) const { xdg_positioner_destroy(positioner); }
    void operator()(xdg_surface* surface) const { xdg_surface_destroy(surface); }
    void operator()(xdg_popup* popup) const { xdg_popup_destroy(popup); }
};
template <typename Object>
using WaylandHandle = std::unique_ptr<Object, WaylandEnd>;

struct WrapperEnd {
    void operator()(void* wrapper) const { wl_proxy_wrapper_destroy(wrapper); }
};
/// An object under another name, by which what it makes has its events on another queue.
using ProxyWrapper = std::unique_ptr<void, WrapperEnd>;

} // namespace korvane
