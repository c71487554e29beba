#include "ShortcutPortal.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QVariantMap>

namespace korvane::test {

namespace {

    const QString portalPath = "/org/freedesktop/portal/desktop";

    struct Shortcut {
        QString id;
        QVariantMap properties;
    };

    QDBusArgument& operator<<(QDBusArgument& argument, const Shortcut& shortcut)
    {
        argument.beginStructure();
        argument << shortcut.id << shortcut.properties;
        argument.endStructure();
        return argument;
    }

    const QDBusArgument& operator>>(const QDBusArgument& argument, Shortcut& shortcut)
    {
        argument.beginStructure();
        argument >> shortcut.id >> shortcut.properties;
        argument.endStructure();
        return argument;
    }

    QString pathOf(const QDBusMessage& message, const QString& kind, const QVariant& token)
    {
        auto name = message.service().mid(1);
        name.replace(u'.', u'_');
        return portalPath + u'/' + kind + u'/' + name + u'/' + token.toString();
    }

    /// Returns the call, and answers it by the object that its options name.
    void respond(const QDBusMessage& message, const QVariantMap& options, uint response,
        const QVariantMap& results, const QDBusConnection& bus)
    {
        const auto request = pathOf(message, "request", options.value("handle_token"));
        bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(request))));
        auto signal
            = QDBusMessage::createSignal(request, "org.freedesktop.portal.Request", "Response");
        signal << response << results;
        bus.send(signal);
    }

} // namespace

ShortcutPortal::ShortcutPortal(SessionBus& bus)
    : m_bus(bus.connection("portal"))
{
    qDBusRegisterMetaType<Shortcut>();
    qDBusRegisterMetaType<QList<Shortcut>>();
    m_object.answers = &answers;
    EXPECT_TRUE(m_bus.registerVirtualObject(portalPath, &m_object, QDBusConnection::SubPath));
    m_object.moveToThread(&m_thread);
    m_thread.start();
    appear();
}

ShortcutPortal::~ShortcutPortal()
{
    m_bus.unregisterObject(portalPath);
    m_thread.quit();
    m_thread.wait();
}

void ShortcutPortal::press(const std::string& session, const QString& shortcut)
{
    auto signal = QDBusMessage::createSignal(
        portalPath, "org.freedesktop.portal.GlobalShortcuts", "Activated");
    signal << QVariant::fromValue(QDBusObjectPath(QString::fromStdString(session))) << shortcut
           << qulonglong { 0 } << QVariantMap {};
    m_bus.send(signal);
}

void ShortcutPortal::close(const std::string& session)
{
    auto signal = QDBusMessage::createSignal(
        QString::fromStdString(session), "org.freedesktop.portal.Session", "Closed");
    signal << QVariantMap {};
    m_bus.send(signal);
}

bool ShortcutPortal::settle(const QDBusConnection& connection)
{
    const QDBusPendingCallWatcher answered(connection.asyncCall(QDBusMessage::createMethodCall(
        m_bus.baseService(), portalPath, "org.freedesktop.DBus.Test", "settle")));
    return waitUntil([&] { return answered.isFinished(); });
}

bool ShortcutPortal::Object::handleMessage(const QDBusMessage& message, const QDBusConnection& bus)
{
    if (message.member() == "settle") {
        bus.send(message.createReply());
    } else if (message.member() == "Get") {
        tellVersion(message, bus);
    } else if (message.member() == "CreateSession") {
        createSession(message, bus);
    } else if (message.member() == "BindShortcuts") {
        bindShortcuts(message, bus);
    } else if (message.member() == "Close") {
        note(m_asked, "close");
    }
    return true;
}

void ShortcutPortal::Object::tellVersion(const QDBusMessage& message, const QDBusConnection& bus)
{
    if (answers->load() == Answer::silence)
        return;
    if (answers->load() == Answer::notOffered)
        bus.send(message.createErrorReply(QDBusError::InvalidArgs, "No such interface"));
    else
        bus.send(message.createReply(QVariant::fromValue(QDBusVariant(1U))));
}

void ShortcutPortal::Object::createSession(const QDBusMessage& message, const QDBusConnection& bus)
{
    note(m_asked, "session");
    const auto options = qdbus_cast<QVariantMap>(message.arguments().value(0));
    if (answers->load() == Answer::noSession)
        return respond(message, options, 2, {}, bus);
    const auto session = pathOf(message, "session", options.value("session_handle_token"));
    note(m_sessions, session.toStdString());
    respond(message, options, 0, { { "session_handle", session } }, bus);
}

void ShortcutPortal::Object::bindShortcuts(const QDBusMessage& message, const QDBusConnection& bus)
{
    const auto shortcuts = qdbus_cast<QList<Shortcut>>(message.arguments().value(1));
    QStringList words { "bind" };
    for (const auto& shortcut : shortcuts)
        words << shortcut.id << shortcut.properties.value("description").toString()
              << shortcut.properties.value("preferred_trigger").toString();
    note(m_asked, words.join(u'|').toStdString());
    const bool isGiven = answers->load() == Answer::bound;
    const QVariantMap results { { "shortcuts",
        QVariant::fromValue(isGiven ? shortcuts : QList<Shortcut> {}) } };
    const uint response = answers->load() == Answer::refused ? 1 : 0;
    respond(message, qdbus_cast<QVariantMap>(message.arguments().value(3)), response, results, bus);
}

} // namespace korvane::test
