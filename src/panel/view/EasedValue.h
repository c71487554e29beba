#pragma once

#include "model/MainLoop.h"

#include <chrono>
#include <functional>

namespace korvane {

/// A number that goes to another one in a given time, fast at first and ever slower, from wherever it
/// is just then, with a step for each frame of the screen. While it stands still it costs nothing; on
/// a desktop that wants no animations it is there at once.
class EasedValue {
public:
    /// @param changed  called with each step
    EasedValue(MainLoop& loop, double value, std::function<void()> changed);

    /// Whether the user wants things to move.
    static bool isAnimated();

    double value() const { return m_value; }
    void goTo(double target, std::chrono::milliseconds duration);
    /// Ends what is under way and stands at the value.
    void setNow(double value);

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
