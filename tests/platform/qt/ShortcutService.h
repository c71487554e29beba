#pragma once

#include "support/EventLoop.h"
#include "support/SessionBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVirtualObject>
#include <QStringList>
#include <QThread>

#include <gtest/gtest.h>

#include <atomic>
#include <mutex>
#include <string>
#include <vector>

namespace korvane::test {

/// The desktop's service for shortcuts, org.kde.kglobalaccel, answering as it is told to. It serves from a thread
/// of its own, because whoever asks it waits for the answer.
class ShortcutService {
public:
    enum class Answer {
        granted, ///< what was asked for
        taken,   ///< none
        another, ///< granted, but the chord that it remembers
        error,
        nonsense, ///< of another kind
        silence,
    };

    explicit ShortcutService(SessionBus& bus)
        : m_bus(bus.connection("shortcuts"))
    {
        m_object.answers = &answers;
        m_object.moveToThread(&m_thread);
        m_thread.start();
        EXPECT_TRUE(
            m_bus.registerVirtualObject("/kglobalaccel", &m_object, QDBusConnection::SingleNode));
        appear();
    }
    ~ShortcutService()
    {
        m_bus.unregisterObject("/kglobalaccel");
        m_thread.quit();
        m_thread.wait();
    }
    ShortcutService(const ShortcutService&) = delete;
    ShortcutService& operator=(const ShortcutService&) = delete;

    void appear() { EXPECT_TRUE(m_bus.registerService("org.kde.kglobalaccel")); }
    void vanish() { EXPECT_TRUE(m_bus.unregisterService("org.kde.kglobalaccel")); }

    /// Says that the chord of an action went down, or up.
    void tell(const QString& what, const QString& component = "com.VNT.Korvane",
        const QString& action = "open")
    {
        m_bus.send(signalOf(what, component, action));
    }
    static QDBusMessage signalOf(
        const QString& what, const QString& component, const QString& action)
    {
        auto signal = QDBusMessage::createSignal(
            "/component/of_Korvane", "org.kde.kglobalaccel.Component", what);
        signal << component << action << qlonglong { 0 };
        return signal;
    }

    /// What it was asked so far, in this order: the method, then the arguments.
    std::vector<std::string> asked() { return m_object.asked(); }
    /// The connection has sent everything before, and has heard of all that was told to it.
    bool settle(const QDBusConnection& connection)
    {
        const QDBusPendingCallWatcher answered(connection.asyncCall(QDBusMessage::createMethodCall(
            m_bus.baseService(), "/kglobalaccel", "org.freedesktop.DBus.Test", "settle")));
        return waitUntil([&] { return answered.isFinished(); });
    }

    std::atomic<Answer> answers { Answer::granted };

private:
    class Object : public QDBusVirtualObject {
    public:
        QString introspect(const QString&) const override { return {}; }
        bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override;
        std::vector<std::string> asked()
        {
            const std::lock_guard lock(m_mutex);
            return m_asked;
        }

        std::atomic<Answer>* answers = nullptr;

    private:
        static QList<int> numbersIn(const QVariant& sequences);
        void answerShortcut(
            const QDBusMessage& message, const QList<int>& numbers, const QDBusConnection& bus);

        std::mutex m_mutex;
        std::vector<std::string> m_asked;
    };

    QThread m_thread;
    Object m_object;
    QDBusConnection m_bus;
};

} // namespace korvane::test
