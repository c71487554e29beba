#include "platform/wayland/WritableWatch.h"

#include <sys/epoll.h>

#include <utility>

namespace korvane {

WritableWatch::WritableWatch(MainLoop& loop, int descriptor, MainLoop::Task task)
    : m_set(::epoll_create1(EPOLL_CLOEXEC))
{
    epoll_event wanted {};
    wanted.events = EPOLLOUT;
    if (::epoll_ctl(m_set.number(), EPOLL_CTL_ADD, descriptor, &wanted) == 0)
        m_watch = loop.watch(m_set.number(), std::move(task));
    else // For want of memory or descriptors: the task finds out for itself what can be written.
        m_watch = loop.every(std::chrono::milliseconds { 50 }, std::move(task));
}

} // namespace korvane
