#include "platform/wayland/CompositorServices.h"

#include "platform/wayland/WaylandConnection.h"

namespace korvane {

namespace {

    /// The loop of a connection that is closed before any would turn.
    class NoLoop : public MainLoop {
    public:
        TimePoint now() const override { return {}; }
        void post(Task) override { }
        Timer after(std::chrono::milliseconds, Task) override { return {}; }
        Timer every(std::chrono::milliseconds, Task) override { return {}; }
        Timer watch(int, Task) override { return {}; }
    };

} // namespace

CompositorServices CompositorServices::of(const WaylandConnection& connection)
{
    CompositorServices services;
    for (const auto& global : connection.globals())
        services.globals.emplace(global.interface, global.version);
    return services;
}

bool CompositorServices::isKde() const
{
    return offers("org_kde_plasma_shell");
}

bool CompositorServices::hasDataControl() const
{
    return offers("ext_data_control_manager_v1") || offers("zwlr_data_control_manager_v1");
}

bool CompositorServices::hasLayerShell() const
{
    return offers("zwlr_layer_shell_v1");
}

bool CompositorServices::hasWindowList() const
{
    return offers("zwlr_foreign_toplevel_manager_v1") || offers("org_kde_plasma_window_management");
}

bool CompositorServices::hasTyping() const
{
    return offers("zwp_virtual_keyboard_manager_v1") || offers("org_kde_kwin_fake_input");
}

std::optional<CompositorServices> lookAtCompositor()
{
    NoLoop loop;
    const WaylandConnection connection(loop);
    if (connection.globals().empty())
        return std::nullopt;
    return CompositorServices::of(connection);
}

} // namespace korvane
