#include "platform/wayland/qt/LayerShell.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <qpa/qplatformnativeinterface.h>

#include <poll.h>

#include <algorithm>
#include <string_view>

namespace korvane {

namespace {

    // The versions of what we make use of.
    constexpr std::uint32_t layerShellVersion = 4;
    constexpr std::uint32_t compositorVersion = 4;

    template <typename Object>
    void bindGlobal(WaylandHandle<Object>& handle, wl_registry* registry, std::uint32_t name,
        const wl_interface& interface, std::uint32_t version)
    {
        handle.reset(static_cast<Object*>(wl_registry_bind(registry, name, &interface, version)));
    }

    void pong(void*, xdg_wm_base* base, std::uint32_t serial)
    {
        xdg_wm_base_pong(base, serial);
    }
    constexpr xdg_wm_base_listener baseListener { .ping = pong };

    void isDone(void* done, wl_callback*, std::uint32_t)
    {
        *static_cast<bool*>(done) = true;
    }
    constexpr wl_callback_listener doneListener { .done = isDone };

} // namespace

void LayerShell::prepareToolkit()
{
    qputenv(toolkitVariable, "1");
}

std::unique_ptr<LayerShell> LayerShell::find()
{
    auto* const native = QGuiApplication::platformNativeInterface();
    if (native == nullptr || !QGuiApplication::platformName().startsWith(u"wayland"))
        return nullptr;
    auto* const display
        = static_cast<wl_display*>(native->nativeResourceForIntegration("wl_display"));
    std::unique_ptr<LayerShell> shell(display != nullptr ? new LayerShell(display) : nullptr);
    return shell && shell->bindGlobals() ? std::move(shell) : nullptr;
}

LayerShell::LayerShell(wl_display* display)
    : m_display(display)
    , m_queue(wl_display_create_queue(display))
{
}

LayerShell::~LayerShell() = default;

bool LayerShell::bindGlobals()
{
    static constexpr wl_registry_listener listener {
        .global =
            [](void* shell, wl_registry* registry, std::uint32_t name, const char* interface,
                std::uint32_t version) {
                static_cast<LayerShell*>(shell)->global(registry, name, interface, version);
            },
        .global_remove = [](void*, wl_registry*, std::uint32_t) {},
    };
    const auto wrapper = onOurQueue(m_display);
    auto* const display = static_cast<wl_display*>(wrapper.get());
    const WaylandHandle<wl_registry> registry(wl_display_get_registry(display));
    wl_registry_add_listener(registry.get(), &listener, this);
    bool isTold = false;
    const WaylandHandle<wl_callback> end(wl_display_sync(display));
    wl_callback_add_listener(end.get(), &doneListener, &isTold);
    if (!await([&isTold] { return isTold; }) || !m_shell || !m_popupBase || !m_compositor || !m_shm)
        return false;
    handOver(m_popupBase.get());
    m_popupMaker = onOurQueue(m_popupBase.get());
    return true;
}

ProxyWrapper LayerShell::onOurQueue(void* proxy) const
{
    ProxyWrapper wrapper(wl_proxy_create_wrapper(proxy));
    wl_proxy_set_queue(static_cast<wl_proxy*>(wrapper.get()), m_queue.get());
    return wrapper;
}

void LayerShell::global(
    wl_registry* registry, std::uint32_t name, const char* interface, std::uint32_t version)
{
    const std::string_view offered = interface;
    if (offered == zwlr_layer_shell_v1_interface.name)
        bindGlobal(m_shell, registry, name, zwlr_layer_shell_v1_interface,
            std::min(version, layerShellVersion));
    else if (offered == wl_compositor_interface.name)
        bindGlobal(m_compositor, registry, name, wl_compositor_interface,
            std::min(version, compositorVersion));
    else if (offered == wl_shm_interface.name)
        bindGlobal(m_shm, registry, name, wl_shm_interface, 1);
    else if (offered == xdg_wm_base_interface.name) {
        bindGlobal(m_popupBase, registry, name, xdg_wm_base_interface, 1);
        xdg_wm_base_add_listener(m_popupBase.get(), &baseListener, nullptr);
    }
}

bool LayerShell::await(const std::function<bool()>& condition)
{
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
        if (!readEvents(end))
            return false;
    }
    return true;
}

/// Waits for events, of whatever queue, and runs those of ours. The toolkit's thread may be reading the
/// same connection: the library has both wait for each other.
bool LayerShell::readEvents(std::chrono::steady_clock::time_point end)
{
    if (wl_display_prepare_read_queue(m_display, m_queue.get()) != 0)
        return wl_display_dispatch_queue_pending(m_display, m_queue.get()) >= 0;
    wl_display_flush(m_display);
    const auto left
        = std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
    pollfd connection { wl_display_get_fd(m_display), POLLIN, 0 };
    const int ready
        = ::poll(&connection, 1, static_cast<int>(std::max<std::int64_t>(left.count(), 0)));
    if (ready > 0) {
        if (wl_display_read_events(m_display) < 0)
            return false;
    } else {
        wl_display_cancel_read(m_display);
    }
    return wl_display_dispatch_queue_pending(m_display, m_queue.get()) >= 0
        && (ready > 0 || std::chrono::steady_clock::now() < end);
}

wl_surface* LayerShell::surfaceOf(QWindow& window)
{
    window.create();
    return static_cast<wl_surface*>(
        QGuiApplication::platformNativeInterface()->nativeResourceForWindow("surface", &window));
}

wl_output* LayerShell::outputOf(QScreen& screen)
{
    return static_cast<wl_output*>(
        QGuiApplication::platformNativeInterface()->nativeResourceForScreen("output", &screen));
}

} // namespace korvane
