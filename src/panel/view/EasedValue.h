#pragma once

#include "model/MainLoop.h"

#include <chrono>
#include <functional>

namespace korvane {

/// A number that goes to another one in a given time, fast at first and ever slower, from wherever it
/// is just then. While it stands still it costs nothing.
class EasedValue {
public:
    /// @param changed  called with each step
    EasedValue(MainLoop& loop, double value, std::function<void()> changed);

    double value() const { return m_value; }
    void goTo(double target, std::chrono::milliseconds duration);

private:
    void step();

    MainLoop& m_loop;
    std::function<void()> m_changed;
    double m_value;
    double m_from;
    double m_target;
    TimePoint m_began;
    std::chrono::milliseconds m_duration { 0 };
    Timer m_tick;
};

} // namespace korvane
