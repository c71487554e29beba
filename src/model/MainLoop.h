#pragma once

#include <chrono>
#include <functional>
#include <utility>

namespace korvane {

/// A moment of the calendar, UTC, in milliseconds: that holds every year that a stored date can
/// name (0001 to 9999), which a clock of nanoseconds does not.
using TimePoint = std::chrono::sys_time<std::chrono::milliseconds>;

/// Ends what it stands for (a delay, a repetition, a watch) when it is destroyed or overwritten.
class [[nodiscard]] Timer {
public:
    Timer() = default;
    explicit Timer(std::function<void()> cancel)
        : m_cancel(std::move(cancel))
    {
    }
    Timer(Timer&& other) noexcept
        : m_cancel(std::exchange(other.m_cancel, nullptr))
    {
    }
    Timer& operator=(Timer&& other) noexcept
    {
        if (this != &other) {
            stop();
            m_cancel = std::exchange(other.m_cancel, nullptr);
        }
        return *this;
    }
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;
    ~Timer() { stop(); }

    /// Safe to call twice, and from within the task.
    void stop()
    {
        if (const auto cancel = std::exchange(m_cancel, nullptr))
            cancel();
    }
    /// True until it is stopped; a delay that has fired stays active until then.
    bool isActive() const { return static_cast<bool>(m_cancel); }

private:
    std::function<void()> m_cancel;
};

/// The one thread's event loop and its clock. Nothing in the program waits in any other way.
class MainLoop {
public:
    using Task = std::function<void()>;

    virtual ~MainLoop() = default;

    /// The wall clock.
    virtual TimePoint now() const = 0;
    /// Runs the task on the next turn of the loop, in the order of posting.
    virtual void post(Task task) = 0;
    /// Runs the task once, after the delay, by the monotonic clock.
    virtual Timer after(std::chrono::milliseconds delay, Task task) = 0;
    /// Runs the task again and again, first after one interval.
    virtual Timer every(std::chrono::milliseconds interval, Task task) = 0;
    /// Runs the task whenever the descriptor can be read without blocking, or has failed.
    virtual Timer watch(int descriptor, Task task) = 0;
};

} // namespace korvane
