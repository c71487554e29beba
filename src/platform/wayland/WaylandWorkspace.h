#pragma once

#include "capture/Workspace.h"
#include "platform/wayland/WaylandConnection.h"
#include "platform/wayland/WindowList.h"
#include "platform/xdg/DesktopEntries.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>

namespace korvane {

/// The applications on the desktop, as the compositor's list of windows tells. It is followed on the
/// connection on which copies are heard of as well, so that what is in front when a copy is told is what
/// was in front when it was made. Where the compositor has no list, or none for us, nothing is ever in
/// front.
class WaylandWorkspace : public Workspace {
public:
    /// @param isPanelOpen  does our panel have the keyboard at this moment? The compositor then says that
    ///                     no window is active, but the one behind the panel is where the user works.
    WaylandWorkspace(
        WaylandConnection& connection, DesktopEntries& entries, std::function<bool()> isPanelOpen);
    WaylandWorkspace(const WaylandWorkspace&) = delete;
    WaylandWorkspace& operator=(const WaylandWorkspace&) = delete;
    ~WaylandWorkspace() override = default;

    /// False where the compositor lists no windows for us.
    bool isAvailable() const { return m_list != nullptr; }

    std::optional<RunningApplication> frontmost() override;
    void activate(const RunningApplication& application) override;

    /// The window in front, for the moment of the last event; 0: none, or one that is not known.
    std::uint64_t frontWindow() const;
    /// Is this window still there?
    bool isThere(std::uint64_t window) const { return m_windows.contains(window); }
    /// Does the window in front belong to a terminal emulator?
    bool isTerminalInFront();

private:
    void follow(MainLoop::Task news);
    void windowChanged(const ListedWindow& window);
    void windowClosed(std::uint64_t id);
    bool isFrontUnknown() const;
    const ListedWindow* inFront() const;

    WaylandConnection& m_connection;
    DesktopEntries& m_entries;
    std::function<bool()> m_isPanelOpen;
    std::map<std::uint64_t, ListedWindow> m_windows;
    /// Windows that have come and of which we have yet to be told what they are: on KDE each is asked
    /// for, and what happens until the answer comes may have happened in it.
    std::map<std::uint64_t, std::chrono::steady_clock::time_point> m_unknown;
    std::uint64_t m_front = 0;
    bool m_isStarting = true;
    // Shared with what is told in order, which may come after our end and must then do nothing.
    std::shared_ptr<bool> m_life = std::make_shared<bool>(true);
    std::unique_ptr<WindowList> m_list;
};

} // namespace korvane
