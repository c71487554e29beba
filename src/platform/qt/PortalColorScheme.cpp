#include "platform/qt/PortalColorScheme.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace korvane {

namespace {

    const auto service = QStringLiteral("org.freedesktop.portal.Desktop");
    const auto path = QStringLiteral("/org/freedesktop/portal/desktop");
    const auto interface = QStringLiteral("org.freedesktop.portal.Settings");
    const auto appearance = QStringLiteral("org.freedesktop.appearance");
    const auto colourScheme = QStringLiteral("color-scheme");
    constexpr uint prefersDark = 1; // 0: no preference, 2: light

} // namespace

PortalColorScheme::PortalColorScheme(const QDBusConnection& bus, QObject* parent)
    : QObject(parent)
{
    auto connection = bus;
    if (!connection.isConnected())
        return;
    connection.connect(service, path, interface, QStringLiteral("SettingChanged"), this,
        SLOT(settingChanged(QString, QString, QDBusVariant)));
    auto question
        = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
    question << appearance << colourScheme;
    auto* answer = new QDBusPendingCallWatcher(connection.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (reply.isValid())
            accept(reply.value().variant());
    });
}

void PortalColorScheme::settingChanged(
    const QString& space, const QString& key, const QDBusVariant& value)
{
    if (space == appearance && key == colourScheme)
        accept(value.variant());
}

void PortalColorScheme::accept(const QVariant& value)
{
    // "Read" answers with a variant in a variant.
    const bool isNested = value.canConvert<QDBusVariant>();
    const auto scheme = isNested ? value.value<QDBusVariant>().variant() : value;
    m_isDark.set(scheme.toUInt() == prefersDark);
}

} // namespace korvane
