#include "platform/shared/WorkspaceDesk.h"

#include "X11Desk.h"
#include "platform/x11/X11Workspace.h"
#include "platform/xdg/DesktopEntries.h"

namespace korvane::test {

namespace {

    class X11OtherWindow : public OtherWindow {
    public:
        X11OtherWindow(TestClient& client, const std::string& windowClass)
            : m_window(client)
        {
            m_window.setClass(windowClass, windowClass);
            m_window.map();
        }

        bool isActive() override { return m_window.isActive() && m_window.hasKeyboard(); }

    private:
        TestWindow m_window;
    };

    class X11RealWorkspace : public RealWorkspace {
    public:
        explicit X11RealWorkspace(const std::filesystem::path& entries)
            : m_entries(m_desk.loop, { entries })
        {
        }

        Workspace& workspace() override { return m_workspace; }
        bool isTerminalInFront() override { return m_workspace.isTerminalInFront(); }
        std::unique_ptr<OtherWindow> open(const std::string& identifier) override
        {
            return std::make_unique<X11OtherWindow>(m_desk.otherProgram, identifier);
        }
        void deliverEvents() override { m_desk.deliverEvents(); }

    private:
        X11Desk m_desk;
        DesktopEntries m_entries;
        X11Workspace m_workspace { m_desk.connection, m_entries,
            [](xcb_window_t) { return false; } };
    };

} // namespace

std::unique_ptr<RealWorkspace> makeRealWorkspace(const std::filesystem::path& entries)
{
    return std::make_unique<X11RealWorkspace>(entries);
}

} // namespace korvane::test
