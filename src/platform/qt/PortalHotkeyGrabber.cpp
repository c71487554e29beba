#include "platform/qt/PortalHotkeyGrabber.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QList>

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

    const auto service = QStringLiteral("org.freedesktop.portal.Desktop");
    const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
    const auto shortcuts = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
    const auto session = QStringLiteral("org.freedesktop.portal.Session");
    const auto shortcutId = QStringLiteral("open");
    constexpr int patience = 1000; // in milliseconds, as the toolkit counts
    constexpr uint success = 0;

    struct PortalShortcut {
        QString id;
        QVariantMap properties;
    };

    QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut)
    {
        argument.beginStructure();
        argument << shortcut.id << shortcut.properties;
        argument.endStructure();
        return argument;
    }

    const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut)
    {
        argument.beginStructure();
        argument >> shortcut.id >> shortcut.properties;
        argument.endStructure();
        return argument;
    }

    QDBusMessage portalCall(const QString& method, const QVariantList& arguments)
    {
        auto message = QDBusMessage::createMethodCall(service, portalPath, shortcuts, method);
        message.setArguments(arguments);
        return message;
    }

} // namespace

PortalHotkeyGrabber::PortalHotkeyGrabber(TriggerOf triggerOf, const QDBusConnection& bus)
    : m_triggerOf(std::move(triggerOf))
    , m_bus(bus)
    , m_service(service, bus, QDBusServiceWatcher::WatchForOwnerChange)
{
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
    if (!m_bus.isConnected())
        return;
    m_bus.connect(service, portalPath, shortcuts, QStringLiteral("Activated"), this,
        SLOT(activated(QDBusMessage)));
    m_bus.connect(service, QString(), session, QStringLiteral("Closed"), this,
        SLOT(sessionClosed(QDBusMessage)));
    connect(&m_service, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString&, const QString&, const QString& owner) {
            endSession();
            if (!owner.isEmpty() && m_trigger)
                makeSession();
        });
}

PortalHotkeyGrabber::~PortalHotkeyGrabber()
{
    release();
}

bool PortalHotkeyGrabber::grab(KeyCode keyCode, ModifierMask modifiers)
{
    release();
    if (!isOffered())
        return false;
    m_trigger = m_triggerOf(keyCode, modifiers);
    makeSession();
    return true;
}

void PortalHotkeyGrabber::release()
{
    m_trigger.reset();
    endSession();
}

bool PortalHotkeyGrabber::isOffered() const
{
    // A portal without a backend for it has no such interface.
    auto question = QDBusMessage::createMethodCall(service, portalPath,
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << shortcuts << QStringLiteral("version");
    const auto answer = m_bus.call(question, QDBus::Block, patience);
    return answer.type() == QDBusMessage::ReplyMessage
        && answer.arguments().value(0).value<QDBusVariant>().variant().toUInt() >= 1;
}

void PortalHotkeyGrabber::makeSession()
{
    const auto token = expectAnswer(SLOT(sessionMade(uint, QVariantMap)));
    const QVariantMap options { { QStringLiteral("handle_token"), token },
        { QStringLiteral("session_handle_token"), token } };
    // Where it will be; known already, so that it can be ended before we are told of it.
    m_session = pathOf(QStringLiteral("session"), token);
    m_bus.send(portalCall(QStringLiteral("CreateSession"), { options }));
}

void PortalHotkeyGrabber::sessionMade(uint response, const QVariantMap& results)
{
    forgetAnswer();
    m_session = results.value(QStringLiteral("session_handle")).toString();
    if (response != success || m_session.isEmpty())
        return;
    PortalShortcut shortcut { shortcutId,
        { { QStringLiteral("description"), QStringLiteral("Open Korvane") } } };
    if (!m_trigger->empty())
        shortcut.properties.insert(
            QStringLiteral("preferred_trigger"), QString::fromStdString(*m_trigger));
    const QVariantMap options { { QStringLiteral("handle_token"),
        expectAnswer(SLOT(shortcutsBound(uint, QVariantMap))) } };
    m_bus.send(portalCall(QStringLiteral("BindShortcuts"),
        { QVariant::fromValue(QDBusObjectPath(m_session)),
            QVariant::fromValue(QList<PortalShortcut> { shortcut }), QString(), options }));
}

void PortalHotkeyGrabber::shortcutsBound(uint response, const QVariantMap& results)
{
    forgetAnswer();
    const auto bound
        = qdbus_cast<QList<PortalShortcut>>(results.value(QStringLiteral("shortcuts")));
    m_isBound.set(response == success
        && std::ranges::any_of(
            bound, [](const PortalShortcut& shortcut) { return shortcut.id == shortcutId; }));
}

void PortalHotkeyGrabber::activated(const QDBusMessage& signal)
{
    const auto arguments = signal.arguments();
    const auto ofSession = arguments.value(0).value<QDBusObjectPath>().path();
    if (!ofSession.isEmpty() && ofSession == m_session
        && arguments.value(1).toString() == shortcutId)
        pressed();
}

void PortalHotkeyGrabber::endSession()
{
    forgetAnswer();
    m_isBound.set(false);
    const auto path = std::exchange(m_session, {});
    if (!path.isEmpty())
        m_bus.send(QDBusMessage::createMethodCall(service, path, session, QStringLiteral("Close")));
}

void PortalHotkeyGrabber::sessionClosed(const QDBusMessage& signal)
{
    if (signal.path() != m_session)
        return;
    m_session.clear();
    m_isBound.set(false);
}

/// The portal makes the path of an object of ours from our name on the bus and a token.
QString PortalHotkeyGrabber::pathOf(const QString& kind, const QString& token) const
{
    auto name = m_bus.baseService().mid(1);
    name.replace(u'.', u'_');
    return QStringLiteral("%1/%2/%3/%4").arg(portalPath, kind, name, token);
}

/// It answers by a signal of such an object.
QString PortalHotkeyGrabber::expectAnswer(const char* slot)
{
    forgetAnswer();
    auto token = QStringLiteral("korvane%1").arg(++m_requests);
    m_request = Request { pathOf(QStringLiteral("request"), token), slot };
    m_bus.connect(service, m_request->path, QStringLiteral("org.freedesktop.portal.Request"),
        QStringLiteral("Response"), this, slot);
    return token;
}

void PortalHotkeyGrabber::forgetAnswer()
{
    if (const auto request = std::exchange(m_request, std::nullopt))
        m_bus.disconnect(service, request->path, QStringLiteral("org.freedesktop.portal.Request"),
            QStringLiteral("Response"), this, request->slot);
}

} // namespace korvane
