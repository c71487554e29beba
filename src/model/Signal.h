#pragma once

#include <boost/signals2/dummy_mutex.hpp>
#include <boost/signals2/signal.hpp>
#include <boost/signals2/signal_type.hpp>

#include <functional>
#include <memory>
#include <utility>

namespace korvane {

/// Keeps one slot connected for as long as it lives. May outlive the signal.
class [[nodiscard]] Connection {
public:
    Connection() = default;
    explicit Connection(boost::signals2::connection connection)
        : m_connection(std::move(connection))
    {
    }

    void disconnect() { m_connection.disconnect(); }

private:
    boost::signals2::scoped_connection m_connection;
};

/// Tells whoever listens that something has happened. Slots are called in the order in which they
/// were connected, on the thread that fires; a slot may connect, disconnect or destroy anything,
/// the signal included, while it is being called. A slot that is connected during a call is first
/// told of the next one.
template <typename... Args>
class Signal {
public:
    Signal() = default;
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;

    Connection connect(std::function<void(const Args&...)> slot)
    {
        return Connection(m_signal->connect(std::move(slot)));
    }

    void operator()(const Args&... args) const
    {
        const auto kept = m_signal; // a slot may destroy us
        (*kept)(args...);
    }

private:
    // One thread (see MainLoop), so the mutex that costs nothing.
    using Keywords = boost::signals2::signal_type<void(const Args&...),
        boost::signals2::keywords::mutex_type<boost::signals2::dummy_mutex>>;
    std::shared_ptr<typename Keywords::type> m_signal = std::make_shared<typename Keywords::type>();
};

/// A value that tells of its changes; setting it to what it already is tells nobody. A slot must
/// not set the value that it is being told of.
template <typename T>
class Observable {
public:
    Observable() = default;
    explicit Observable(T value)
        : m_value(std::move(value))
    {
    }

    const T& value() const { return m_value; }

    void set(T value)
    {
        if (m_value == value)
            return;
        m_value = std::move(value);
        const T told = m_value; // a slot may destroy us
        m_changed(told);
    }

    /// Calls the slot with the present value at once, and with every later one.
    Connection observe(std::function<void(const T&)> slot)
    {
        auto connection = m_changed.connect(slot);
        const T told = m_value; // the slot may destroy us
        slot(told);
        return connection;
    }

    /// Calls the slot with every later value only.
    Connection onChange(std::function<void(const T&)> slot)
    {
        return m_changed.connect(std::move(slot));
    }

private:
    T m_value {};
    Signal<T> m_changed;
};

} // namespace korvane
