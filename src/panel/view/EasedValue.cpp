#include "panel/view/EasedValue.h"

#include <algorithm>
#include <utility>

namespace korvane {

namespace {
    /// A frame of most screens.
    constexpr std::chrono::milliseconds frame { 16 };
} // namespace

EasedValue::EasedValue(MainLoop& loop, double value, std::function<void()> changed)
    : m_loop(loop)
    , m_changed(std::move(changed))
    , m_value(value)
    , m_from(value)
    , m_target(value)
    , m_began(loop.now())
{
}

void EasedValue::goTo(double target, std::chrono::milliseconds duration)
{
    if (target == m_target)
        return; // it stands there, or is on its way
    m_from = m_value;
    m_target = target;
    m_began = m_loop.now();
    m_duration = duration;
    m_tick = m_loop.every(frame, [this] { step(); });
}

void EasedValue::step()
{
    // The wall clock may be set meanwhile; then the end comes at once.
    const auto passed = m_loop.now() - m_began;
    const double share = passed < std::chrono::milliseconds::zero() || m_duration.count() == 0
        ? 1
        : std::min(
            1.0, static_cast<double>(passed.count()) / static_cast<double>(m_duration.count()));
    const double eased = 1 - (1 - share) * (1 - share);
    m_value = share < 1 ? m_from + (m_target - m_from) * eased : m_target;
    if (share >= 1)
        m_tick.stop();
    m_changed();
}

} // namespace korvane
