#include "panel/ChevronTicks.h"

#include "panel/ClipScrollTracker.h"

#include <chrono>
#include <utility>

namespace korvane {

namespace {

    std::chrono::milliseconds whole(std::int64_t intervals)
    {
        return std::chrono::ceil<std::chrono::milliseconds>(intervals * chevronHoverTickInterval);
    }

} // namespace

ChevronTicks::ChevronTicks(MainLoop& loop, std::function<void()> tick)
    : m_loop(loop)
    , m_tick(std::move(tick))
{
}

void ChevronTicks::start()
{
    m_began = m_loop.now();
    m_count = 0;
    schedule();
    m_tick();
}

void ChevronTicks::schedule()
{
    const auto due = m_began + whole(++m_count);
    auto delay = due - m_loop.now();
    // The next one is overdue, or somebody has set the clock back: the beat begins anew from here.
    if (delay < std::chrono::milliseconds::zero() || delay > whole(1)) {
        m_began = m_loop.now();
        m_count = 1;
        delay = whole(1);
    }
    m_next = m_loop.after(delay, [this] {
        schedule();
        m_tick();
    });
}

} // namespace korvane
