#pragma once

#include "support/EventLoop.h"

#include <QDBusConnection>
#include <QProcess>
#include <QString>

#include <gtest/gtest.h>
#include <sys/prctl.h>

#include <csignal>
#include <vector>

namespace korvane::test {

/// A session bus of the test's own.
class SessionBus {
public:
    SessionBus()
    {
        // A process that tests its own end leaves without a farewell; the daemon must not stay.
        m_daemon.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
        m_daemon.start("dbus-daemon", { "--session", "--nofork", "--print-address=1" });
        EXPECT_TRUE(waitUntil([this] { return m_daemon.canReadLine(); }));
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    }
    ~SessionBus()
    {
        for (const auto& name : m_names)
            QDBusConnection::disconnectFromBus(name);
        kill();
    }
    SessionBus(const SessionBus&) = delete;
    SessionBus& operator=(const SessionBus&) = delete;

    QDBusConnection connection(const QString& name)
    {
        m_names.push_back(name);
        return QDBusConnection::connectToBus(m_address, name);
    }

    /// It answers nobody any more.
    void hang() const { ::kill(static_cast<pid_t>(m_daemon.processId()), SIGSTOP); }
    /// It ends under everyone who is connected.
    void kill()
    {
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

private:
    QProcess m_daemon;
    QString m_address;
    std::vector<QString> m_names;
};

} // namespace korvane::test
