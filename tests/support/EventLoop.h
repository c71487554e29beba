#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <fstream>
#include <functional>

namespace korvane::test {

/// Runs the toolkit's loop until the condition holds or the deadline has passed; says whether it
/// holds. It is asked after whatever the loop does, and every few milliseconds for what happens in
/// other programs.
inline bool waitUntil(const std::function<bool()>& condition,
    std::chrono::milliseconds deadline = std::chrono::seconds { 20 })
{
    QElapsedTimer elapsed;
    elapsed.start();
    QTimer wake;
    wake.start(std::chrono::milliseconds { 2 });
    while (!condition()) {
        if (elapsed.hasExpired(deadline.count()))
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

/// Measures the longest time for which the loop was held up since it was made, or since the last
/// `restart`. The time for which this thread was ready to run and another program had the processor
/// is not counted: it says nothing about the loop.
class LoopGap {
public:
    LoopGap()
    {
        m_tick.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_tick, &QTimer::timeout, [this] { tick(); });
        m_tick.start(std::chrono::milliseconds { 1 });
        restart();
    }

    void restart()
    {
        m_longest = {};
        m_waited = waitedForProcessor();
        m_sinceTick.start();
    }
    /// What is still going on counts too.
    std::chrono::microseconds longest()
    {
        tick();
        return m_longest;
    }

private:
    using Nanoseconds = std::chrono::nanoseconds;

    static Nanoseconds waitedForProcessor()
    {
        std::ifstream statistics("/proc/thread-self/schedstat");
        std::int64_t running = 0;
        std::int64_t waiting = 0;
        statistics >> running >> waiting;
        return Nanoseconds { waiting };
    }
    void tick()
    {
        const auto waited = waitedForProcessor();
        const auto gap = Nanoseconds { m_sinceTick.nsecsElapsed() } - (waited - m_waited);
        m_longest = std::max(m_longest, std::chrono::duration_cast<std::chrono::microseconds>(gap));
        m_waited = waited;
        m_sinceTick.start();
    }

    QTimer m_tick;
    QElapsedTimer m_sinceTick;
    Nanoseconds m_waited {};
    std::chrono::microseconds m_longest {};
};

} // namespace korvane::test
