#pragma once

#include "support/EventLoop.h"
#include "support/SessionBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVirtualObject>
#include <QThread>

#include <gtest/gtest.h>

#include <atomic>
#include <mutex>
#include <string>
#include <vector>

namespace korvane::test {

/// The desktop's portal, as far as it gives shortcuts, with a user who answers as the test says. It serves
/// from a thread of its own, because whoever looks for it waits for the answer.
class ShortcutPortal {
public:
    enum class Answer {
        bound,   ///< the user agrees
        nothing, ///< success, and no shortcut
        refused, ///< the user does not agree
        noSession,
        notOffered, ///< the portal has no such interface
        silence,    ///< it hangs
    };

    explicit ShortcutPortal(SessionBus& bus);
    ~ShortcutPortal();
    ShortcutPortal(const ShortcutPortal&) = delete;
    ShortcutPortal& operator=(const ShortcutPortal&) = delete;

    void appear() { EXPECT_TRUE(m_bus.registerService("org.freedesktop.portal.Desktop")); }
    void vanish() { EXPECT_TRUE(m_bus.unregisterService("org.freedesktop.portal.Desktop")); }

    /// The user presses a shortcut of a session.
    void press(const std::string& session, const QString& shortcut = "open");
    /// The user takes the shortcuts of a session away.
    void close(const std::string& session);

    /// What it was asked so far, in this order: "session", "bind" with what was proposed, "close".
    std::vector<std::string> asked() { return m_object.list(m_object.m_asked); }
    /// The sessions that it made so far.
    std::vector<std::string> sessions() { return m_object.list(m_object.m_sessions); }
    /// The connection has sent everything before, and has heard of all that was told to it.
    bool settle(const QDBusConnection& connection);

    std::atomic<Answer> answers { Answer::bound };

private:
    class Object : public QDBusVirtualObject {
    public:
        QString introspect(const QString&) const override { return {}; }
        bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override;
        std::vector<std::string> list(const std::vector<std::string>& all)
        {
            const std::lock_guard lock(m_mutex);
            return all;
        }
        void note(std::vector<std::string>& all, const std::string& word)
        {
            const std::lock_guard lock(m_mutex);
            all.push_back(word);
        }
        void tellVersion(const QDBusMessage& message, const QDBusConnection& bus);
        void createSession(const QDBusMessage& message, const QDBusConnection& bus);
        void bindShortcuts(const QDBusMessage& message, const QDBusConnection& bus);

        std::atomic<Answer>* answers = nullptr;
        std::mutex m_mutex;
        std::vector<std::string> m_asked;
        std::vector<std::string> m_sessions;
    };

    QThread m_thread;
    Object m_object;
    QDBusConnection m_bus;
};

} // namespace korvane::test
