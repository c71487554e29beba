#pragma once

#include "model/Files.h"

#include <wayland-client.h>
#include <wlr-layer-shell-unstable-v1-client-protocol.h>
#include <xdg-shell-client-protocol.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korvane::test {

/// Another program on the same compositor, as far as the compositor can tell: a connection of its own. It
/// hears of events only when it is told to.
class WaylandClient {
public:
    WaylandClient();
    WaylandClient(const WaylandClient&) = delete;
    WaylandClient& operator=(const WaylandClient&) = delete;
    ~WaylandClient();

    wl_display* display() const { return m_display.get(); }
    /// Binds a global; null where there is none. It ends with the connection.
    template <typename Proxy>
    Proxy* bind(const wl_interface& interface, std::uint32_t version)
    {
        return reinterpret_cast<Proxy*>(bindGlobal(interface, version));
    }
    /// Ends a global that was bound before the connection does, so that nobody hears of it any more.
    template <typename Proxy>
    void end(Proxy* bound)
    {
        endProxy(reinterpret_cast<wl_proxy*>(bound));
    }
    wl_seat* seat() const { return m_seat; }
    wl_compositor* compositor() const { return m_compositor; }
    wl_shm* sharedMemory() const { return m_sharedMemory; }
    xdg_wm_base* shell() const { return m_shell; }

    /// Everything requested so far has been served when this returns, and every event was heard.
    bool sync() { return wl_display_roundtrip(display()) >= 0; }
    /// Hears of what has come, and sends what was requested; waits for nothing.
    void listen();

private:
    struct Disconnect {
        void operator()(wl_display* display) const { wl_display_disconnect(display); }
    };
    struct Global {
        std::uint32_t name = 0;
        std::uint32_t version = 0;
    };

    wl_proxy* bindGlobal(const wl_interface& interface, std::uint32_t version);
    void endProxy(wl_proxy* proxy);

    std::unique_ptr<wl_display, Disconnect> m_display;
    wl_registry* m_registry = nullptr;
    std::map<std::string, Global, std::less<>> m_globals;
    std::vector<wl_proxy*> m_bound;
    wl_seat* m_seat = nullptr;
    wl_compositor* m_compositor = nullptr;
    wl_shm* m_sharedMemory = nullptr;
    xdg_wm_base* m_shell = nullptr;
};

/// A panel above all windows that takes the keyboard, as ours does: from its making to its end.
class WaylandPanel {
public:
    explicit WaylandPanel(WaylandClient& client);
    WaylandPanel(const WaylandPanel&) = delete;
    WaylandPanel& operator=(const WaylandPanel&) = delete;
    ~WaylandPanel();

private:
    WaylandClient& m_client;
    wl_surface* m_surface = nullptr;
    zwlr_layer_surface_v1* m_layer = nullptr;
    wl_buffer* m_buffer = nullptr;
};

/// An ordinary window of such a program: on the screen from its making to its end.
class WaylandWindow {
public:
    WaylandWindow(WaylandClient& client, const std::string& appId, const std::string& title = {});
    WaylandWindow(const WaylandWindow&) = delete;
    WaylandWindow& operator=(const WaylandWindow&) = delete;
    ~WaylandWindow();

    /// The compositor says that it is the one that the user works in.
    bool isActive();
    void setTitle(const std::string& title);

private:
    WaylandClient& m_client;
    wl_surface* m_surface = nullptr;
    xdg_surface* m_shellSurface = nullptr;
    xdg_toplevel* m_toplevel = nullptr;
    wl_buffer* m_buffer = nullptr;
    bool m_isConfigured = false;
    bool m_isActive = false;
};

} // namespace korvane::test
