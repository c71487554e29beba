#pragma once

#include "model/MainLoop.h"
#include "model/Signal.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace korvane {

/// Frees what the X library allocated for us.
using X11Free = std::integral_constant<void (*)(void*), &std::free>;
/// A reply of the server, or null where the server answered with an error.
template <typename Reply>
using X11Reply = std::unique_ptr<Reply, X11Free>;
using X11Event = std::unique_ptr<xcb_generic_event_t, X11Free>;

/// Where an extension's numbers begin on this server.
struct X11Extension {
    std::uint8_t majorOpcode = 0;
    std::uint8_t firstEvent = 0;
};

/// The backends' own connection to the X server, apart from the toolkit's: nothing that another
/// program does to it can hold up the windows. Events reach those who asked for them on the main
/// loop, in the order of the server, and never while a reply is being waited for.
class X11Connection {
public:
    using Slot = std::function<void(const xcb_generic_event_t&)>;

    /// Connects to the display that DISPLAY names.
    explicit X11Connection(MainLoop& loop);
    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;
    ~X11Connection() = default;

    /// False when there was no server to connect to, or it has gone since. Requests then do nothing
    /// and replies are null.
    bool isOpen() const;
    /// For making requests; never null.
    xcb_connection_t* get() const { return m_connection.get(); }
    /// The root window of the default screen; 0 without a server.
    xcb_window_t root() const { return m_root; }

    /// The atom of this name, made if there is none. The server is asked once for each name.
    xcb_atom_t atom(std::string_view name);
    /// Numbers of an extension of the server (`&xcb_xfixes_id` and its like); none where the server
    /// lacks it. The extension's own version handshake is the caller's.
    std::optional<X11Extension> extension(xcb_extension_t* id) const;

    /// Waits for the server's reply to a request: `reply(xcb_get_property_reply, xcb_get_property(…))`.
    /// Only the server is waited for, never another program. Events that arrive meanwhile are
    /// delivered on the next turn of the loop.
    template <typename Reply, typename Cookie>
    X11Reply<Reply> reply(
        Reply* (*fetch)(xcb_connection_t*, Cookie, xcb_generic_error_t**), Cookie cookie)
    {
        // Without a place to put it, the library frees the error itself.
        X11Reply<Reply> answer(fetch(m_connection.get(), cookie, nullptr));
        keepQueuedEvents();
        return answer;
    }
    /// Waits for the server's verdict on a `…_checked` request: did it succeed?
    bool succeeded(xcb_void_cookie_t cookie);
    /// Sends what has been requested. Whoever makes requests and awaits no reply calls this.
    void flush();

    /// Calls the slot for every event of this type (the core protocol's number, or an extension's
    /// first event plus the event's number), also where another client sent it.
    Connection onEvent(std::uint8_t type, Slot slot);
    /// The same for an event that arrives as XGE ("generic event extension") event, as the ones of
    /// XInput 2 do.
    Connection onGenericEvent(std::uint8_t majorOpcode, std::uint16_t type, Slot slot);
    /// Whether an event that has arrived and has not been delivered is such a one.
    bool hasArrived(const std::function<bool(const xcb_generic_event_t&)>& isWanted);
    /// Takes the events of this type that have arrived and have not been delivered out of the queue;
    /// slots will not hear of them. For who must know now what the server has said so far: after a
    /// reply, everything that happened before it is here.
    /// @param isLast  only as far as the last event for which this holds; none: all of them
    std::vector<X11Event> takeArrived(
        std::uint8_t type, const std::function<bool(const xcb_generic_event_t&)>& isLast = {});

    /// The server has gone. Told once.
    Signal<> closed;

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    void keepQueuedEvents();
    void dispatchSoon();
    void readAndDispatch();
    void dispatch(const xcb_generic_event_t& event);
    Connection connect(std::uint32_t key, Slot slot);

    MainLoop& m_loop;
    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    xcb_window_t m_root = XCB_NONE;
    std::map<std::string, xcb_atom_t, std::less<>> m_atoms;
    std::map<std::uint32_t, Signal<xcb_generic_event_t>> m_signals;
    std::deque<X11Event> m_arrived;
    bool m_isDispatchPosted = false;
    bool m_hasToldClosed = false;
    // Shared with posted tasks, which may run after our end and must then do nothing.
    std::shared_ptr<bool> m_life = std::make_shared<bool>(true);
    Timer m_watch;
};

} // namespace korvane
