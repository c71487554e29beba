#include "platform/qt/PortalRequest.h"

#include "platform/qt/Portal.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QUuid>

#include <limits>
#include <utility>

namespace korvane {

namespace {

    const auto requestInterface = QStringLiteral("org.freedesktop.portal.Request");
    constexpr uint accepted = 0; // 1: given up by the user, 2: ended in another way

    constexpr int mostClosings = 10;
    constexpr std::chrono::milliseconds betweenClosings { 500 };

    /// Where the portal puts the request, known before it has been asked: its answer may be there before
    /// the reply is.
    QString handleOf(const QDBusConnection& bus, const QString& token)
    {
        auto sender = bus.baseService().mid(1); // without its colon
        return portalPath + QStringLiteral("/request/") + sender.replace(u'.', u'_') + u'/' + token;
    }

} // namespace

PortalRequest::PortalRequest(
    QDBusConnection bus, MainLoop& loop, const Question& question, Ended ended, QObject* parent)
    : QObject(parent)
    , m_bus(std::move(bus))
    , m_loop(loop)
    , m_ended(std::move(ended))
    , m_owners(portalService, m_bus, QDBusServiceWatcher::WatchForOwnerChange)
    , m_patience(loop.after(
          patience, [this] { tell(End::unavailable, {}, QStringLiteral("it does not answer")); }))
{
    // Nobody else can guess it, so an answer there is the portal's.
    const auto token = QStringLiteral("korvane_") + QUuid::createUuid().toString(QUuid::Id128);
    listenTo(handleOf(m_bus, token));
    listenForLosses();
    ask(question, token);
}

void PortalRequest::listenTo(const QString& handle)
{
    m_handle = handle;
    // Of whatever sender: to be told the portal's name on the bus would have to be waited for.
    m_bus.connect(QString(), handle, requestInterface, QStringLiteral("Response"), this,
        SLOT(responded(QDBusMessage)));
}

void PortalRequest::listenForLosses()
{
    connect(&m_owners, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString&, const QString& before) { ownerChanged(before); });
    m_bus.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
        QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
        SLOT(busLost()));
}

void PortalRequest::ask(const Question& question, const QString& token)
{
    auto options = question.options;
    options.insert(QStringLiteral("handle_token"), token);
    auto message = QDBusMessage::createMethodCall(
        portalService, portalPath, question.interface, question.method);
    message.setArguments(question.arguments + QVariantList { options });
    // A reply that comes too late brings a dialog that must go again, so it is always listened for.
    constexpr auto forever = std::numeric_limits<int>::max();
    auto* const call = new QDBusPendingCallWatcher(m_bus.asyncCall(message, forever), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] { replied(*call); });
}

void PortalRequest::replied(const QDBusPendingCallWatcher& call)
{
    const QDBusPendingReply<QDBusObjectPath> reply = call;
    m_patience.stop();
    if (reply.isError())
        return finish(End::unavailable, {}, reply.error().name());
    m_isTaken = true;
    // Portals before 0.9 put it somewhere else.
    if (reply.value().path() != m_handle)
        listenTo(reply.value().path());
    if (m_ended)
        taken();
    else
        close();
}

void PortalRequest::responded(const QDBusMessage& message)
{
    m_isTaken = true;
    if (message.signature() != QStringLiteral("ua{sv}"))
        return finish(End::givenUp, {}, QStringLiteral("it answers in a way of its own"));
    const auto arguments = message.arguments();
    const bool isAccepted = arguments.value(0).toUInt() == accepted;
    finish(isAccepted ? End::accepted : End::givenUp,
        isAccepted ? qdbus_cast<QVariantMap>(arguments.value(1)) : QVariantMap(), {});
}

/// Before it has taken the question on, the bus itself answers in its place.
void PortalRequest::ownerChanged(const QString& before)
{
    if (m_isTaken && !before.isEmpty())
        finish(End::givenUp, {}, QStringLiteral("it has gone"));
}

void PortalRequest::busLost()
{
    if (m_isTaken)
        finish(End::givenUp, {}, QStringLiteral("the session bus has gone"));
}

void PortalRequest::withdraw()
{
    m_ended = nullptr;
    m_patience.stop();
    if (m_isTaken)
        close();
}

/// A portal that is only just making the dialog may refuse (xdg-desktop-portal-gtk 1.14, a fifth of a second
/// long), so it is asked again.
void PortalRequest::close()
{
    auto message = QDBusMessage::createMethodCall(
        portalService, m_handle, requestInterface, QStringLiteral("Close"));
    message.setAutoStartService(false);
    auto* const call = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
        if (call->isError() && ++m_closings < mostClosings)
            m_closeAgain = m_loop.after(betweenClosings, [this] { close(); });
        else
            deleteLater();
    });
}

void PortalRequest::finish(End end, const QVariantMap& results, const QString& reason)
{
    deleteLater();
    m_patience.stop();
    tell(end, results, reason);
}

void PortalRequest::tell(End end, const QVariantMap& results, const QString& reason)
{
    if (const auto ended = std::exchange(m_ended, nullptr))
        ended(end, results, reason);
}

} // namespace korvane
