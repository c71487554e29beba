#pragma once

#include "model/MainLoop.h"

#include <memory>

namespace korvane {

/// The main loop over the toolkit's: the application object must exist before it and outlive it.
/// What is pending when it is destroyed is dropped; timers that outlive it end nothing.
class QtMainLoop : public MainLoop {
public:
    QtMainLoop();
    ~QtMainLoop() override;

    TimePoint now() const override;
    void post(Task task) override;
    Timer after(std::chrono::milliseconds delay, Task task) override;
    Timer every(std::chrono::milliseconds interval, Task task) override;
    Timer watch(int descriptor, Task task) override;

private:
    class Scheduler;
    std::unique_ptr<Scheduler> m_scheduler;
};

} // namespace korvane
