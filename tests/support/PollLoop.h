#pragma once

#include "support/ManualLoop.h"

#include <poll.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace korvane::test {

/// A main loop that watches real descriptors, without a toolkit: it also runs in a process that was
/// forked off. Time still moves by hand.
class PollLoop : public ManualLoop {
public:
    Timer watch(int descriptor, Task task) override
    {
        const auto serial = ++m_serial;
        m_watched->emplace(serial, Watched { descriptor, std::move(task) });
        return Timer([weak = std::weak_ptr(m_watched), serial] {
            if (const auto watched = weak.lock())
                watched->erase(serial);
        });
    }

    /// Runs whatever happens until the condition holds or the deadline has passed; says whether it
    /// holds.
    bool runUntil(const std::function<bool()>& condition,
        std::chrono::milliseconds deadline = std::chrono::seconds { 20 })
    {
        const auto end = std::chrono::steady_clock::now() + deadline;
        while (!condition()) {
            if (std::chrono::steady_clock::now() >= end)
                return false;
            runOnce(std::chrono::milliseconds { 2 });
        }
        return true;
    }

    /// Runs everything that is ready now, and what follows from it; waits for nothing.
    void runReady()
    {
        while (runOnce({})) { }
    }

private:
    struct Watched {
        int descriptor;
        Task task;
    };

    bool runOnce(std::chrono::milliseconds patience)
    {
        turn();
        std::vector<std::uint64_t> serials;
        std::vector<pollfd> entries;
        for (const auto& [serial, watched] : *m_watched) {
            serials.push_back(serial);
            entries.push_back({ watched.descriptor, POLLIN, 0 });
        }
        const auto ready
            = ::poll(entries.data(), entries.size(), static_cast<int>(patience.count()));
        for (std::size_t index = 0; index < entries.size(); ++index) {
            const auto found = m_watched->find(serials[index]);
            if (entries[index].revents == 0 || found == m_watched->end())
                continue;
            const auto task = found->second.task; // a copy: it may end its own watch
            task();
        }
        turn();
        return ready > 0;
    }

    std::uint64_t m_serial = 0;
    // Shared: a watch may outlive the loop.
    std::shared_ptr<std::map<std::uint64_t, Watched>> m_watched
        = std::make_shared<std::map<std::uint64_t, Watched>>();
};

} // namespace korvane::test
