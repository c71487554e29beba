#pragma once

#include "model/MainLoop.h"
#include "model/Signal.h"

#include <wayland-client.h>

#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace korvane {

class WritableWatch;

/// The backends' own connection to the compositor, apart from the toolkit's: nothing that another
/// program does to it can hold up the windows. Everything on it is told in the order of the compositor,
/// so that of two services the later event is the later one.
class WaylandConnection {
public:
    /// One of the services that the compositor offers.
    struct Global {
        std::uint32_t name = 0; ///< its number on this connection
        std::string interface;
        std::uint32_t version = 0;
    };

    /// Connects to the compositor that WAYLAND_DISPLAY (or WAYLAND_SOCKET) names, and waits for it to
    /// tell what it offers.
    explicit WaylandConnection(MainLoop& loop);
    WaylandConnection(const WaylandConnection&) = delete;
    WaylandConnection& operator=(const WaylandConnection&) = delete;
    ~WaylandConnection();

    /// False when there was no compositor to connect to, or it has gone since (or has thrown us out).
    bool isOpen() const;
    /// Null when there was no compositor to connect to. Objects that were bound must be destroyed
    /// before this is.
    wl_display* get() const { return m_display.get(); }

    /// Those that it offers now; none where it did not answer when it was connected to.
    const std::vector<Global>& globals() const { return m_globals; }
    /// The version in which the compositor offers a global; 0: it does not.
    std::uint32_t versionOf(const wl_interface& interface) const;
    /// A new object for the first global of this kind, for its owner to destroy; null where there is
    /// none.
    /// @param maxVersion  the latest version that the caller understands
    template <typename Proxy>
    Proxy* bind(const wl_interface& interface, std::uint32_t maxVersion)
    {
        return static_cast<Proxy*>(bindGlobal(interface, maxVersion));
    }
    /// The seat that the user sits at; null where there is none. It is bound once, and ours.
    wl_seat* seat();

    /// Sends what has been requested, as soon as the compositor takes it; never waits. Whoever makes
    /// requests and awaits no answer calls this.
    void flush();
    /// Waits until the compositor has served all requests until now, and every event that it sent
    /// before has been dispatched. Only the compositor is waited for, never another program. False when
    /// it has gone, or does not answer within two seconds.
    bool roundTrip();

    /// Has a listener's news told: at once where the loop has dispatched the event, and on the next turn,
    /// in the order of the events, where a round trip has, so that nobody acts in the middle of a caller
    /// who waits.
    /// @param life  the task is dropped when this has ended by then
    void tellInOrder(std::weak_ptr<void> life, MainLoop::Task task);

    /// The compositor has gone. Told once.
    Signal<> lost;

private:
    struct Disconnect {
        void operator()(wl_display* display) const { wl_display_disconnect(display); }
    };
    struct Release {
        void operator()(wl_registry* registry) const { wl_registry_destroy(registry); }
        void operator()(wl_seat* seat) const;
    };
    struct News {
        std::weak_ptr<void> life;
        MainLoop::Task task;
    };
    using Deadline = std::chrono::steady_clock::time_point;

    void* bindGlobal(const wl_interface& interface, std::uint32_t maxVersion);
    const Global* find(const wl_interface& interface) const;
    void listenToRegistry();
    void readAndDispatch();
    bool dispatchUntil(Deadline deadline);
    void tellSoon();
    void tellNews();
    void noticeLoss();

    MainLoop& m_loop;
    std::unique_ptr<wl_display, Disconnect> m_display;
    std::unique_ptr<wl_registry, Release> m_registry;
    std::unique_ptr<wl_seat, Release> m_seat;
    std::vector<Global> m_globals;
    std::deque<News> m_news;
    int m_roundTrips = 0;
    bool m_isTellingPosted = false;
    bool m_hasToldLoss = false;
    // Shared with posted tasks, which may run after our end and must then do nothing.
    std::shared_ptr<bool> m_life = std::make_shared<bool>(true);
    std::unique_ptr<WritableWatch> m_unsent;
    Timer m_watch;
};

} // namespace korvane
