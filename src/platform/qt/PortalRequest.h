#pragma once

#include "model/MainLoop.h"
#include "model/Signal.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <QVariantList>
#include <QVariantMap>

#include <chrono>
#include <functional>

class QDBusPendingCallWatcher;

namespace korvane {

/// One dialog that the desktop's portal shows the user for us (XDG Desktop Portal,
/// org.freedesktop.portal.Request). Nothing waits for it. It deletes itself when nothing more can come of it.
class PortalRequest : public QObject {
    Q_OBJECT
public:
    struct Question {
        QString interface; ///< of the portal
        QString method;
        QVariantList arguments; ///< those before the options
        QVariantMap options;    ///< without "handle_token", which is the request's own
    };

    enum class End {
        accepted, ///< the user has agreed; the results are the portal's
        givenUp,  ///< by the user, or the dialog has gone in another way; the results say nothing
        unavailable, ///< there is no dialog and will be none: the portal is not there, refuses, or is silent
    };
    /// @param reason  why there is no dialog, or why it has gone if not by the user; for the log
    using Ended = std::function<void(End end, const QVariantMap& results, const QString& reason)>;

    /// How long the portal may take to take a question on, for which it may have to be started first. The
    /// user may take longer.
    static constexpr std::chrono::milliseconds patience { 3000 };

    /// Asks.
    /// @param bus    the session bus, which is connected
    /// @param ended  told once, on a later turn of the loop
    PortalRequest(QDBusConnection bus, MainLoop& loop, const Question& question, Ended ended,
        QObject* parent);

    /// The portal has taken the question on: its dialog is about to come.
    Signal<> taken;

    /// Has the dialog closed, also one that comes only later. Nothing is told any more.
    void withdraw();

private Q_SLOTS:
    // Called by name, as the bus requires.
    void responded(const QDBusMessage& message);
    void busLost();

private: // NOLINT(readability-redundant-access-specifiers): the toolkit's own reader needs it
    void listenTo(const QString& handle);
    void listenForLosses();
    void ask(const Question& question, const QString& token);
    void replied(const QDBusPendingCallWatcher& call);
    void ownerChanged(const QString& before);
    void close();
    void finish(End end, const QVariantMap& results, const QString& reason);
    void tell(End end, const QVariantMap& results, const QString& reason);

    QDBusConnection m_bus;
    MainLoop& m_loop;
    Ended m_ended; // none when it has been told, or nobody wants to know
    QString m_handle;
    bool m_isTaken = false;       // the portal has taken the question on
    QDBusServiceWatcher m_owners; // of the portal's name
    Timer m_patience;
    int m_closings = 0; // that have been refused
    Timer m_closeAgain;
};

} // namespace korvane
