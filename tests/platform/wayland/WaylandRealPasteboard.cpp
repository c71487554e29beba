#include "platform/qt/QtMainLoop.h"
#include "platform/shared/PasteboardDesk.h"
#include "platform/wayland/PrimaryPeer.h"
#include "platform/wayland/WaylandPasteboard.h"
#include "platform/wayland/WaylandWorkspace.h"

namespace korvane::test {

namespace {

    /// The pasteboard on the real compositor, with the list of windows that belongs to it.
    class WaylandRealPasteboard : public RealPasteboard {
    public:
        WaylandRealPasteboard()
        {
            // An owner of an earlier test may have ended a moment ago, without the compositor knowing yet.
            waitUntil([this] {
                const WaylandPasteboard look(m_connection, m_loop, windows());
                return look.isEmpty();
            });
            m_pasteboard = std::make_unique<WaylandPasteboard>(m_connection, m_loop, windows());
        }

        MainLoop& loop() override { return m_loop; }
        Pasteboard& pasteboard() override { return *m_pasteboard; }
        void end() override { m_pasteboard.reset(); }
        void hear() override { m_connection.roundTrip(); }
        void copyToPrimary(const std::string& text) override { m_peer.copy(text); }
        std::string pasteFromPrimary(const char* type) override { return m_peer.paste(type); }
        void writePrimaryToo() override { m_pasteboard->writePrimaryToo(); }

    private:
        WaylandPasteboard::Windows windows()
        {
            return { [this] { return m_workspace.frontWindow(); },
                [this](std::uint64_t window) { return m_workspace.isThere(window); } };
        }

        QtMainLoop m_loop;
        WaylandConnection m_connection { m_loop };
        DesktopEntries m_entries { m_loop, {} };
        WaylandWorkspace m_workspace { m_connection, m_entries, [] { return false; } };
        std::unique_ptr<WaylandPasteboard> m_pasteboard;
        PrimaryPeer m_peer;
    };

} // namespace

std::unique_ptr<RealPasteboard> makeRealPasteboard()
{
    return std::make_unique<WaylandRealPasteboard>();
}

QStringList pasteCommand(const char* type)
{
    return { "wl-paste", "--no-newline", "-t", type };
}

} // namespace korvane::test
