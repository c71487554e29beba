#pragma once

#include "model/MainLoop.h"

#include <chrono>
#include <functional>

class QWidget;

namespace korvane {

/// A number that goes to another one in a given time, fast at first and ever slower, from wherever it
/// is just then, with a step for each frame of its screen. While it stands still it costs nothing; on
/// a desktop that wants no animations it is there at once.
class EasedValue {
public:
    /// @param widget   where it is seen; it must outlive us
    /// @param changed  called with each step
    EasedValue(MainLoop& loop, const QWidget& widget, double value, std::function<void()> changed);

    /// Whether the user wants things to move.
    static bool isAnimated();

    double value() const { return m_value; }
    void goTo(double target, std::chrono::milliseconds duration);
    /// Ends what is under way and stands at the value.
    void setNow(double value);

private:
    void step();

    MainLoop& m_loop;
    const QWidget& m_widget;
    std::function<void()> m_changed;
    double m_value;
    double m_from;
    double m_target;
    TimePoint m_began;
    std::chrono::milliseconds m_duration { 0 };
    Timer m_tick;
};

} // namespace korvane
