#include "platform/wayland/WaylandConnection.h"

#include "platform/wayland/WritableWatch.h"

#include <poll.h>

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <utility>

namespace korvane {

namespace {

    using std::chrono::steady_clock;

    // A compositor that does not answer in this time hangs, and the whole desktop with it.
    constexpr std::chrono::seconds patience { 2 };
    // From version 5 on a seat is given back rather than forgotten.
    constexpr std::uint32_t seatVersion = 5;

    struct DestroyCallback {
        void operator()(wl_callback* callback) const { wl_callback_destroy(callback); }
    };

    int millisecondsUntil(steady_clock::time_point deadline)
    {
        const auto left
            = std::chrono::ceil<std::chrono::milliseconds>(deadline - steady_clock::now());
        return static_cast<int>(std::max<std::int64_t>(left.count(), 0));
    }

} // namespace

void WaylandConnection::Release::operator()(wl_seat* seat) const
{
    if (wl_seat_get_version(seat) >= WL_SEAT_RELEASE_SINCE_VERSION)
        wl_seat_release(seat);
    else
        wl_seat_destroy(seat);
}

WaylandConnection::WaylandConnection(MainLoop& loop)
    : m_loop(loop)
    , m_display(wl_display_connect(nullptr))
{
    if (!m_display)
        return;
    listenToRegistry();
    roundTrip();
    m_watch = m_loop.watch(wl_display_get_fd(get()), [this] { readAndDispatch(); });
}

WaylandConnection::~WaylandConnection() = default;

bool WaylandConnection::isOpen() const
{
    return m_display && wl_display_get_error(get()) == 0;
}

void WaylandConnection::listenToRegistry()
{
    m_registry.reset(wl_display_get_registry(get()));
    static constexpr wl_registry_listener listener {
        .global =
            [](void* self, wl_registry*, std::uint32_t name, const char* interface,
                std::uint32_t version) {
                static_cast<WaylandConnection*>(self)->m_globals.push_back(
                    { name, interface, version });
            },
        .global_remove =
            [](void* self, wl_registry*, std::uint32_t name) {
                std::erase_if(static_cast<WaylandConnection*>(self)->m_globals,
                    [name](const Global& global) { return global.name == name; });
            },
    };
    wl_registry_add_listener(m_registry.get(), &listener, this);
}

const WaylandConnection::Global* WaylandConnection::find(const wl_interface& interface) const
{
    const auto found = std::ranges::find(m_globals, std::string_view(interface.name),
        [](const Global& global) { return std::string_view(global.interface); });
    return found == m_globals.end() ? nullptr : &*found;
}

std::uint32_t WaylandConnection::versionOf(const wl_interface& interface) const
{
    const auto* const global = find(interface);
    return global == nullptr ? 0 : global->version;
}

void* WaylandConnection::bindGlobal(const wl_interface& interface, std::uint32_t maxVersion)
{
    const auto* const global = find(interface);
    if (global == nullptr || !isOpen())
        return nullptr;
    return wl_registry_bind(
        m_registry.get(), global->name, &interface, std::min(global->version, maxVersion));
}

wl_seat* WaylandConnection::seat()
{
    if (!m_seat)
        m_seat.reset(bind<wl_seat>(wl_seat_interface, seatVersion));
    return m_seat.get();
}

void WaylandConnection::flush()
{
    if (!isOpen())
        return;
    const bool isFull = wl_display_flush(get()) < 0 && errno == EAGAIN;
    if (!isFull)
        m_unsent.reset();
    else if (!m_unsent)
        m_unsent = std::make_unique<WritableWatch>(
            m_loop, wl_display_get_fd(get()), [this] { flush(); });
}

bool WaylandConnection::roundTrip()
{
    if (!isOpen())
        return false;
    bool isDone = false;
    const std::unique_ptr<wl_callback, DestroyCallback> answer(wl_display_sync(get()));
    static constexpr wl_callback_listener listener {
        .done = [](void* done, wl_callback*, std::uint32_t) { *static_cast<bool*>(done) = true; },
    };
    wl_callback_add_listener(answer.get(), &listener, &isDone);
    const auto deadline = steady_clock::now() + patience;
    ++m_roundTrips;
    while (!isDone && dispatchUntil(deadline)) { }
    --m_roundTrips;
    noticeLoss();
    return isDone;
}

// Dispatches what has been read, or waits until there is something to read and dispatches that.
bool WaylandConnection::dispatchUntil(Deadline deadline)
{
    if (wl_display_prepare_read(get()) != 0)
        return wl_display_dispatch_pending(get()) >= 0;
    const bool isFull = wl_display_flush(get()) < 0 && errno == EAGAIN;
    pollfd waited { wl_display_get_fd(get()), POLLIN, 0 };
    if (isFull)
        waited.events |= POLLOUT;
    const int ready = ::poll(&waited, 1, millisecondsUntil(deadline));
    if (ready <= 0 || (waited.revents & ~POLLOUT) == 0) {
        wl_display_cancel_read(get());
        return ready > 0 || (ready < 0 && errno == EINTR);
    }
    return wl_display_read_events(get()) == 0 && wl_display_dispatch_pending(get()) >= 0;
}

void WaylandConnection::readAndDispatch()
{
    tellNews(); // which are older than what is read now
    if (wl_display_prepare_read(get()) == 0) {
        flush();
        // Reads what there is, which is never more than a buffer of the library holds.
        wl_display_read_events(get());
    }
    wl_display_dispatch_pending(get());
    flush();
    noticeLoss();
}

void WaylandConnection::tellInOrder(std::weak_ptr<void> life, MainLoop::Task task)
{
    if (m_roundTrips == 0 && m_news.empty()) {
        task();
        return;
    }
    m_news.push_back({ std::move(life), std::move(task) });
    tellSoon();
}

void WaylandConnection::tellSoon()
{
    if (std::exchange(m_isTellingPosted, true))
        return;
    m_loop.post([this, life = std::weak_ptr(m_life)] {
        if (life.expired())
            return;
        m_isTellingPosted = false;
        tellNews();
        // What a round trip has read beyond its answer makes the descriptor no longer readable.
        if (isOpen())
            wl_display_dispatch_pending(get());
        flush();
    });
}

void WaylandConnection::tellNews()
{
    // Each is taken out before it is told: what comes of it is told after all that is here.
    for (auto left = m_news.size(); left > 0 && !m_news.empty(); --left) {
        const auto news = std::move(m_news.front());
        m_news.pop_front();
        if (!news.life.expired())
            news.task();
    }
    if (!m_news.empty())
        tellSoon();
}

void WaylandConnection::noticeLoss()
{
    if (!m_display || isOpen() || std::exchange(m_hasToldLoss, true))
        return;
    m_watch.stop();
    m_unsent.reset();
    m_loop.post([this, life = std::weak_ptr(m_life)] {
        if (!life.expired())
            lost();
    });
}

} // namespace korvane
