#include "platform/x11/X11Connection.h"

#include <xcb/randr.h>
#include <xcb/xfixes.h>
#include <xcb/xinput.h>

// The header of the keyboard extension names a field "explicit", which C++ keeps for itself.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

#include <algorithm>
#include <iterator>
#include <utility>

namespace korvane {

namespace {

    // So many events are delivered in one turn of the loop; the rest waits for the next, so that a
    // flood of them cannot hold up painting and keys.
    constexpr std::size_t maxEventsATurn = 64;

    constexpr std::uint8_t typeWithoutSentBit(std::uint8_t responseType)
    {
        return responseType & 0x7F;
    }

    constexpr std::uint32_t genericKey(std::uint8_t majorOpcode, std::uint16_t type)
    {
        return 0x1000000U | (std::uint32_t { majorOpcode } << 16U) | type;
    }

    std::uint32_t keyOf(const xcb_generic_event_t& event)
    {
        const auto type = typeWithoutSentBit(event.response_type);
        if (type != XCB_GE_GENERIC)
            return type;
        const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
        return genericKey(generic.extension, generic.event_type);
    }

    xcb_window_t rootOf(xcb_connection_t* connection, int screen)
    {
        auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
        for (; screens.rem > 1 && screen > 0; --screen)
            xcb_screen_next(&screens);
        return screens.rem > 0 ? screens.data->root : XCB_NONE;
    }

} // namespace

X11Connection::X11Connection(MainLoop& loop)
    : m_loop(loop)
{
    int screen = 0;
    m_connection.reset(xcb_connect(nullptr, &screen));
    if (!isOpen())
        return;
    m_root = rootOf(get(), screen);
    for (auto* id : { &xcb_xfixes_id, &xcb_input_id, &xcb_xkb_id, &xcb_randr_id })
        xcb_prefetch_extension_data(get(), id);
    flush();
    m_watch = m_loop.watch(xcb_get_file_descriptor(get()), [this] { readAndDispatch(); });
}

bool X11Connection::isOpen() const
{
    return xcb_connection_has_error(m_connection.get()) == 0;
}

xcb_atom_t X11Connection::atom(std::string_view name)
{
    const auto known = m_atoms.find(name);
    if (known != m_atoms.end())
        return known->second;
    const auto answer = reply(xcb_intern_atom_reply,
        xcb_intern_atom(get(), 0, static_cast<std::uint16_t>(name.size()), name.data()));
    if (!answer)
        return XCB_ATOM_NONE;
    return m_atoms.emplace(name, answer->atom).first->second;
}

std::optional<X11Extension> X11Connection::extension(xcb_extension_t* id) const
{
    if (!isOpen())
        return std::nullopt;
    const auto* data = xcb_get_extension_data(get(), id); // the library's own; it frees it
    if (data == nullptr || data->present == 0)
        return std::nullopt;
    return X11Extension { data->major_opcode, data->first_event };
}

bool X11Connection::succeeded(xcb_void_cookie_t cookie)
{
    const X11Reply<xcb_generic_error_t> error(xcb_request_check(get(), cookie));
    keepQueuedEvents();
    return !error && isOpen();
}

void X11Connection::flush()
{
    xcb_flush(get());
}

Connection X11Connection::onEvent(std::uint8_t type, Slot slot)
{
    return connect(type, std::move(slot));
}

Connection X11Connection::onGenericEvent(std::uint8_t majorOpcode, std::uint16_t type, Slot slot)
{
    return connect(genericKey(majorOpcode, type), std::move(slot));
}

Connection X11Connection::connect(std::uint32_t key, Slot slot)
{
    return m_signals[key].connect(std::move(slot));
}

bool X11Connection::hasArrived(const std::function<bool(const xcb_generic_event_t&)>& isWanted)
{
    keepQueuedEvents();
    return std::ranges::any_of(m_arrived, [&](const X11Event& event) { return isWanted(*event); });
}

std::vector<X11Event> X11Connection::takeArrived(
    std::uint8_t type, const std::function<bool(const xcb_generic_event_t&)>& isLast)
{
    keepQueuedEvents();
    const auto isWanted = [type](const X11Event& event) { return keyOf(*event) == type; };
    auto end = m_arrived.end();
    if (isLast) {
        while (end != m_arrived.begin() && !(isWanted(end[-1]) && isLast(*end[-1])))
            --end;
    }
    // The others keep their order, and stay before what comes after `end`.
    const auto firstTaken = std::stable_partition(
        m_arrived.begin(), end, [&](const X11Event& event) { return !isWanted(event); });
    std::vector<X11Event> taken(std::make_move_iterator(firstTaken), std::make_move_iterator(end));
    m_arrived.erase(firstTaken, end);
    return taken;
}

// What the library has read on the way to a reply makes the descriptor no longer readable: without
// this, such events would lie there until the server happened to say something else.
void X11Connection::keepQueuedEvents()
{
    while (auto event = X11Event(xcb_poll_for_queued_event(get())))
        m_arrived.push_back(std::move(event));
    if (!m_arrived.empty())
        dispatchSoon();
}

void X11Connection::dispatchSoon()
{
    if (std::exchange(m_isDispatchPosted, true))
        return;
    m_loop.post([this, life = std::weak_ptr(m_life)] {
        if (life.expired())
            return;
        m_isDispatchPosted = false;
        readAndDispatch();
    });
}

void X11Connection::readAndDispatch()
{
    while (auto event = X11Event(xcb_poll_for_event(get())))
        m_arrived.push_back(std::move(event));
    // Only what is here now: what a slot's own request brings in waits for the next turn.
    for (auto left = std::min(maxEventsATurn, m_arrived.size()); left > 0 && !m_arrived.empty();
         --left) {
        const auto event = std::move(m_arrived.front());
        m_arrived.pop_front();
        dispatch(*event);
    }
    if (!m_arrived.empty())
        dispatchSoon();
    flush();
    if (!isOpen() && !std::exchange(m_hasToldClosed, true)) {
        m_watch.stop();
        closed();
    }
}

void X11Connection::dispatch(const xcb_generic_event_t& event)
{
    const auto found = m_signals.find(keyOf(event));
    if (found != m_signals.end())
        found->second(event);
}

} // namespace korvane
