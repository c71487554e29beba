#pragma once

#include <functional>
#include <memory>
#include <tuple>
#include <utility>

namespace korvane {

/// Keeps one slot connected for as long as it lives. May outlive the signal.
class [[nodiscard]] Connection {
public:
    Connection();
    ~Connection();
    Connection(Connection&& other) noexcept;
    Connection& operator=(Connection&& other) noexcept;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void disconnect();

private:
    friend class Listeners;
    struct Held;
    explicit Connection(std::unique_ptr<Held> held);

    std::unique_ptr<Held> m_held;
};

/// The slots of one signal, each told by the address of what is said; Signal<…> gives that its types back. It
/// stands apart because nearly every file reads this one: the library behind it is then compiled once.
class Listeners {
public:
    using Slot = std::function<void(const void* told)>;

    Listeners();
    ~Listeners();
    Listeners(const Listeners&) = delete;
    Listeners& operator=(const Listeners&) = delete;

    Connection connect(Slot slot);
    void tell(const void* told) const;

private:
    struct List;
    std::shared_ptr<List> m_list; // shared by the calls that are under way: a slot may destroy us
};

/// Tells whoever listens that something has happened. Slots are called in the order in which they
/// were connected, on the thread that fires; a slot may connect, disconnect or destroy anything,
/// the signal included, while it is being called. A slot that is connected during a call is first
/// told of the next one.
template <typename... Args>
class Signal {
public:
    Connection connect(std::function<void(const Args&...)> slot)
    {
        return m_listeners.connect([slot = std::move(slot)](const void* told) {
            std::apply(slot, *static_cast<const Told*>(told));
        });
    }

    void operator()(const Args&... args) const
    {
        const Told told(args...);
        m_listeners.tell(&told);
    }

private:
    using Told = std::tuple<const Args&...>;

    Listeners m_listeners;
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
