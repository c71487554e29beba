#pragma once

#include "model/MainLoop.h"

#include <algorithm>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <utility>

namespace korvane::test {

/// A main loop whose time is moved by hand. What is due runs in the order of its time, then of its
/// making; posted tasks run before time moves.
class ManualLoop : public MainLoop {
public:
    TimePoint now() const override { return m_now; }
    void setNow(TimePoint now) { m_now = now; }

    void post(Task task) override { m_posted.push_back(std::move(task)); }

    Timer after(std::chrono::milliseconds delay, Task task) override
    {
        return schedule(delay, std::nullopt, std::move(task));
    }
    Timer every(std::chrono::milliseconds interval, Task task) override
    {
        return schedule(interval, interval, std::move(task));
    }
    /// Files are not watched here: tests of descriptors run on the real loop.
    Timer watch(int, Task) override
    {
        return Timer([] {});
    }

    /// Runs what has been posted, also by what runs.
    void turn()
    {
        while (!m_posted.empty()) {
            const auto task = std::move(m_posted.front());
            m_posted.pop_front();
            task();
        }
    }

    /// Lets time pass, running everything that falls due.
    void advance(std::chrono::milliseconds duration)
    {
        const auto end = m_elapsed + duration;
        turn();
        for (auto next = due(end); next != m_due->end(); next = due(end)) {
            auto entry = next->second;
            const auto at = next->first.first;
            m_now += at - m_elapsed;
            m_elapsed = at;
            m_due->erase(next);
            if (entry.interval)
                m_due->emplace(Key { at + *entry.interval, entry.serial }, entry);
            entry.task();
            turn();
        }
        m_now += end - m_elapsed;
        m_elapsed = end;
    }

    /// How many delays and repetitions are pending.
    std::size_t pendingTimers() const { return m_due->size(); }

private:
    struct Entry {
        std::uint64_t serial;
        std::optional<std::chrono::milliseconds> interval;
        Task task;
    };
    using Key = std::pair<std::chrono::milliseconds, std::uint64_t>;
    using Due = std::map<Key, Entry>;

    Timer schedule(std::chrono::milliseconds delay,
        std::optional<std::chrono::milliseconds> interval, Task task)
    {
        const auto serial = ++m_serial;
        m_due->emplace(
            Key { m_elapsed + delay, serial }, Entry { serial, interval, std::move(task) });
        return Timer([weak = std::weak_ptr(m_due), serial] {
            if (const auto due = weak.lock())
                std::erase_if(
                    *due, [serial](const auto& item) { return item.second.serial == serial; });
        });
    }
    Due::iterator due(std::chrono::milliseconds end)
    {
        const auto first = m_due->begin();
        return first != m_due->end() && first->first.first <= end ? first : m_due->end();
    }

    TimePoint m_now { std::chrono::sys_days { std::chrono::year { 2026 } / 11 / 21 } };
    std::chrono::milliseconds m_elapsed { 0 };
    std::uint64_t m_serial = 0;
    std::deque<Task> m_posted;
    std::shared_ptr<Due> m_due = std::make_shared<Due>(); // shared: a timer may outlive the loop
};

} // namespace korvane::test
