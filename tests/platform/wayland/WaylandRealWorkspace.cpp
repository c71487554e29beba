#include "platform/shared/WorkspaceDesk.h"

#include "platform/qt/QtMainLoop.h"
#include "platform/wayland/WaylandClient.h"
#include "platform/wayland/WaylandWorkspace.h"

namespace korvane::test {

namespace {

    class WaylandOtherWindow : public OtherWindow {
    public:
        WaylandOtherWindow(WaylandClient& client, const std::string& appId)
            : m_window(client, appId)
        {
        }

        bool isActive() override { return m_window.isActive(); }

    private:
        WaylandWindow m_window;
    };

    class WaylandRealWorkspace : public RealWorkspace {
    public:
        explicit WaylandRealWorkspace(const std::filesystem::path& entries)
            : m_entries(m_loop, { entries })
        {
        }

        Workspace& workspace() override { return m_workspace; }
        bool isTerminalInFront() override { return m_workspace.isTerminalInFront(); }
        std::unique_ptr<OtherWindow> open(const std::string& identifier) override
        {
            return std::make_unique<WaylandOtherWindow>(m_otherProgram, identifier);
        }
        void deliverEvents() override
        {
            m_otherProgram.sync();
            m_connection.roundTrip();
            m_connection.roundTrip();
            bool isDelivered = false;
            m_loop.post([&] { isDelivered = true; });
            waitUntil([&] { return isDelivered; });
        }

    private:
        QtMainLoop m_loop;
        WaylandConnection m_connection { m_loop };
        DesktopEntries m_entries;
        WaylandWorkspace m_workspace { m_connection, m_entries, [] { return false; } };
        WaylandClient m_otherProgram;
    };

} // namespace

std::unique_ptr<RealWorkspace> makeRealWorkspace(const std::filesystem::path& entries)
{
    return std::make_unique<WaylandRealWorkspace>(entries);
}

} // namespace korvane::test
