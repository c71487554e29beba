#include "platform/wayland/WaylandPlatform.h"

#include <utility>

namespace korvane {

WaylandPlatform::WaylandPlatform(
    MainLoop& loop, wl_display* toolkit, std::function<bool()> isPanelOpen)
    : m_connection(loop)
    , m_entries(loop, DesktopEntries::standardFolders())
    , m_applications(m_entries)
    , m_user(toolkit)
    , m_workspace(m_connection, m_entries, std::move(isPanelOpen))
    , m_pasteboard(m_connection, loop,
          { [this] { return m_workspace.frontWindow(); },
              [this](std::uint64_t window) { return m_workspace.isThere(window); } })
    , m_keyboard(m_connection, m_user,
          { [this] { return m_workspace.isTerminalInFront(); },
              [this] { m_pasteboard.writePrimaryToo(); } })
    , m_keyRecorder(m_user)
{
}

} // namespace korvane
