#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace korvane {

class WaylandConnection;

/// A window of any program, as the compositor tells of it.
struct ListedWindow {
    /// Given by the list, from 1 on, and to no other window after it.
    std::uint64_t id = 0;
    /// What the program says its desktop entry is; of an X client its class. It is any program's to say.
    std::string appId {};
    std::string title {};
    /// 0: not told.
    std::uint32_t process = 0;
    bool isActive = false;
};

/// The windows of all programs, by the protocol wlr-foreign-toplevel-management or, on KDE,
/// plasma-window-management. Layer surfaces, and so our own panel, are no windows to them.
class WindowList {
public:
    struct Listener {
        /// A window has come; what it is will be told.
        std::function<void(std::uint64_t id)> announced;
        /// What a window that has come is, or something of it is another than it was.
        std::function<void(const ListedWindow& window)> changed;
        std::function<void(std::uint64_t id)> closed;
    };

    virtual ~WindowList() = default;

    /// The windows of the connection's compositor; null where it shows them to nobody, or not to us. The
    /// listener is called from the dispatch of the connection's events, first for the windows that are
    /// there already. The connection must outlive the list.
    static std::unique_ptr<WindowList> open(WaylandConnection& connection, Listener listener);

    /// Brings a window to the front and gives it the keyboard; nothing when it has gone.
    virtual void activate(std::uint64_t id) = 0;
};

/// The two kinds of it; null where the compositor lacks the protocol.
std::unique_ptr<WindowList> openForeignToplevelList(
    WaylandConnection& connection, WindowList::Listener listener);
std::unique_ptr<WindowList> openPlasmaWindowList(
    WaylandConnection& connection, WindowList::Listener listener);

} // namespace korvane
