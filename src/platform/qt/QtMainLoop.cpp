#include "platform/qt/QtMainLoop.h"

#include <QMetaObject>
#include <QObject>
#include <QPointer>
#include <QSocketNotifier>
#include <QTimerEvent>

#include <cstdint>
#include <map>
#include <utility>

namespace korvane {

/// The receiver of the toolkit's timer events. Delays are known by numbers of our own, because the
/// toolkit gives the number of a timer that has ended to the next one.
class QtMainLoop::Scheduler : public QObject {
public:
    enum class Repeat { once, always };

    Timer schedule(std::chrono::milliseconds interval, Repeat repeat, Task task)
    {
        const auto serial = ++m_serial;
        // A repetition may be put together with other wake-ups of the machine; a delay is exact.
        const auto type = repeat == Repeat::once ? Qt::PreciseTimer : Qt::CoarseTimer;
        const auto id = startTimer(interval, type);
        m_pending.emplace(id, Pending { serial, repeat, std::move(task) });
        return Timer([self = QPointer<Scheduler>(this), id, serial] {
            if (self)
                self->cancel(id, serial);
        });
    }

protected:
    void timerEvent(QTimerEvent* event) override
    {
        const auto found = m_pending.find(event->timerId());
        if (found == m_pending.end())
            return;
        const auto task = found->second.task; // a copy: the task may end itself
        if (found->second.repeat == Repeat::once)
            cancel(found->first, found->second.serial);
        task();
    }

private:
    struct Pending {
        std::uint64_t serial;
        Repeat repeat;
        Task task;
    };

    void cancel(int id, std::uint64_t serial)
    {
        const auto found = m_pending.find(id);
        if (found == m_pending.end() || found->second.serial != serial)
            return;
        killTimer(id);
        m_pending.erase(found);
    }

    std::uint64_t m_serial = 0;
    std::map<int, Pending> m_pending;
};

QtMainLoop::QtMainLoop()
    : m_scheduler(std::make_unique<Scheduler>())
{
}

QtMainLoop::~QtMainLoop() = default;

TimePoint QtMainLoop::now() const
{
    return std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
}

void QtMainLoop::post(Task task)
{
    QMetaObject::invokeMethod(m_scheduler.get(), std::move(task), Qt::QueuedConnection);
}

Timer QtMainLoop::after(std::chrono::milliseconds delay, Task task)
{
    return m_scheduler->schedule(delay, Scheduler::Repeat::once, std::move(task));
}

Timer QtMainLoop::every(std::chrono::milliseconds interval, Task task)
{
    return m_scheduler->schedule(interval, Scheduler::Repeat::always, std::move(task));
}

Timer QtMainLoop::watch(int descriptor, Task task)
{
    const QPointer notifier
        = new QSocketNotifier(descriptor, QSocketNotifier::Read, m_scheduler.get());
    QObject::connect(notifier, &QSocketNotifier::activated, m_scheduler.get(),
        [task = std::move(task)] { task(); });
    return Timer([notifier] {
        if (!notifier)
            return;
        // Later, because this may be called from within its own signal.
        notifier->setEnabled(false);
        notifier->deleteLater();
    });
}

} // namespace korvane
