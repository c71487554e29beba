#pragma once

#include "model/MainLoop.h"

#include <cstdint>
#include <functional>

namespace korvane {

/// The beat of a list that scrolls by itself: sixty times a second on the average, although a delay is
/// a whole number of milliseconds. A beat that comes late makes up for it; beats that were missed
/// altogether are left out, so that a program that was busy does not leap.
class ChevronTicks {
public:
    ChevronTicks(MainLoop& loop, std::function<void()> tick);

    /// Ticks at once and then at each interval, until it is stopped, which a tick may do.
    void start();
    void stop() { m_next.stop(); }
    bool isRunning() const { return m_next.isActive(); }

private:
    void schedule();

    MainLoop& m_loop;
    std::function<void()> m_tick;
    TimePoint m_began {};
    std::int64_t m_count = 0; ///< intervals since then, the one that is waited for included
    Timer m_next;
};

} // namespace korvane
