#include "look/view/EasedValue.h"

#include <QApplication>
#include <QScreen>
#include <QStyle>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvane {

namespace {

    /// How long the screen shows one picture.
    std::chrono::milliseconds frameOf(const QScreen* screen)
    {
        const double rate = screen != nullptr ? screen->refreshRate() : 0;
        return std::chrono::milliseconds { rate > 0 ? std::clamp(std::lround(1000 / rate), 4L, 40L)
                                                    : 16 };
    }

} // namespace

EasedValue::EasedValue(
    MainLoop& loop, const QWidget& widget, double value, std::function<void()> changed)
    : m_loop(loop)
    , m_widget(widget)
    , m_changed(std::move(changed))
    , m_value(value)
    , m_from(value)
    , m_target(value)
    , m_began(loop.now())
{
}

bool EasedValue::isAnimated()
{
    return QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) > 0;
}

void EasedValue::goTo(double target, std::chrono::milliseconds duration)
{
    if (target == m_target)
        return; // it stands there, or is on its way
    m_from = m_value;
    m_target = target;
    m_began = m_loop.now();
    m_duration = duration;
    if (isAnimated())
        m_tick = m_loop.every(frameOf(m_widget.screen()), [this] { step(); });
    else
        setNow(target);
}

void EasedValue::setNow(double value)
{
    m_tick.stop();
    m_value = m_target = value;
    m_changed();
}

void EasedValue::step()
{
    // The wall clock may be set meanwhile; then the end comes at once.
    const auto passed = m_loop.now() - m_began;
    const double share = passed < std::chrono::milliseconds::zero() || m_duration.count() == 0
        ? 1
        : std::min(
            1.0, static_cast<double>(passed.count()) / static_cast<double>(m_duration.count()));
    if (share >= 1)
        return setNow(m_target);
    const double eased = 1 - (1 - share) * (1 - share);
    m_value = m_from + (m_target - m_from) * eased;
    m_changed();
}

} // namespace korvane
