#pragma once

#include "platform/wayland/qt/LayerHandles.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

class QScreen;
class QWindow;

namespace korvane {

/// The compositor's layer shell (wlr-layer-shell-unstable-v1) over the toolkit's own connection, on which
/// the surfaces of the toolkit's windows live. The toolkit itself knows no such role: a window that it
/// is told to leave alone has a bare surface, and the role is given to that here.
///
/// Answers that are waited for come over an event queue of our own, so that the toolkit's is not run
/// from within a call; what comes later goes over the toolkit's.
class LayerShell {
public:
    /// How long an answer is waited for. It takes a few milliseconds; a compositor that takes longer
    /// leaves every program without a picture.
    static constexpr std::chrono::milliseconds patience { 1000 };

    /// To be called before the toolkit's application object is made: has it leave those windows bare that
    /// are outside the window manager's reach.
    static void prepareToolkit();
    /// The variable of the environment by which the toolkit is told. It looks there at each showing of a
    /// window, so it has to stay; programs that we start must not inherit it.
    static constexpr const char* toolkitVariable = "QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT";

    /// @return none where the toolkit runs on another platform, or the compositor has no layer shell
    static std::unique_ptr<LayerShell> find();
    ~LayerShell();
    LayerShell(const LayerShell&) = delete;
    LayerShell& operator=(const LayerShell&) = delete;

    /// The connection of the toolkit.
    wl_display* display() const { return m_display; }
    zwlr_layer_shell_v1* get() const { return m_shell.get(); }
    wl_compositor* compositor() const { return m_compositor.get(); }
    wl_shm* shm() const { return m_shm.get(); }
    /// What popups are made by; their events come over our queue.
    xdg_wm_base* popupBase() const { return static_cast<xdg_wm_base*>(m_popupMaker.get()); }

    /// Runs our queue until the condition holds.
    /// @return whether it does; not when patience is at its end or the connection has failed
    bool await(const std::function<bool()>& condition);
    /// Has the object's events come over the toolkit's queue from now on.
    template <typename Object>
    static void handOver(Object* object)
    {
        wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(object), nullptr);
    }

    /// The surface of a window, which is made if it is not there yet; null where there is none.
    static wl_surface* surfaceOf(QWindow& window);
    static wl_output* outputOf(QScreen& screen);

private:
    explicit LayerShell(wl_display* display);

    bool bindGlobals();
    void global(
        wl_registry* registry, std::uint32_t name, const char* interface, std::uint32_t version);
    ProxyWrapper onOurQueue(void* proxy) const;
    bool readEvents(std::chrono::steady_clock::time_point end);

    wl_display* m_display;
    WaylandHandle<wl_event_queue> m_queue;
    WaylandHandle<wl_compositor> m_compositor;
    WaylandHandle<wl_shm> m_shm;
    WaylandHandle<zwlr_layer_shell_v1> m_shell;
    WaylandHandle<xdg_wm_base>
        m_popupBase; // asked at any time whether we are alive, and so on the toolkit's queue
    ProxyWrapper m_popupMaker;
};

} // namespace korvane
