#pragma once

#include "model/Files.h"
#include "model/MainLoop.h"

namespace korvane {

/// Runs a task whenever a descriptor can be written to without blocking, or has failed, for as long as
/// it lives. The main loop watches for what can be read; an epoll set can be read when one of its
/// members is ready for whatever it is a member for (epoll(7)).
class WritableWatch {
public:
    WritableWatch(MainLoop& loop, int descriptor, MainLoop::Task task);
    WritableWatch(const WritableWatch&) = delete;
    WritableWatch& operator=(const WritableWatch&) = delete;
    ~WritableWatch() = default;

private:
    Descriptor m_set;
    Timer m_watch;
};

} // namespace korvane
