#include "model/Signal.h"

#include <boost/signals2/dummy_mutex.hpp>
#include <boost/signals2/signal.hpp>
#include <boost/signals2/signal_type.hpp>

namespace korvane {

struct Connection::Held {
    boost::signals2::scoped_connection connection;
};

Connection::Connection() = default;
Connection::~Connection() = default;
Connection::Connection(Connection&& other) noexcept = default;
Connection& Connection::operator=(Connection&& other) noexcept = default;

Connection::Connection(std::unique_ptr<Held> held)
    : m_held(std::move(held))
{
}

void Connection::disconnect()
{
    m_held.reset();
}

struct Listeners::List {
    // One thread (see MainLoop), so the mutex that costs nothing.
    boost::signals2::signal_type<void(const void*),
        boost::signals2::keywords::mutex_type<boost::signals2::dummy_mutex>>::type signal;
};

Listeners::Listeners()
    : m_list(std::make_shared<List>())
{
}

Listeners::~Listeners() = default;

Connection Listeners::connect(Slot slot)
{
    return Connection(std::make_unique<Connection::Held>(m_list->signal.connect(std::move(slot))));
}

void Listeners::tell(const void* told) const
{
    const auto kept = m_list; // a slot may destroy us
    kept->signal(told);
}

} // namespace korvane
