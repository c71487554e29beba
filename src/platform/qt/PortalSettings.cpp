#include "platform/qt/PortalSettings.h"

#include "platform/qt/Portal.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace korvane {

namespace {

    const auto interface = QStringLiteral("org.freedesktop.portal.Settings");
    constexpr uint prefersDark = 1; // 0: no preference, 2: light

    struct Setting {
        QString space;
        QString key;

        friend bool operator==(const Setting&, const Setting&) = default;
    };

    Setting colourScheme()
    {
        return { QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme") };
    }
    Setting animations()
    {
        return { QStringLiteral("org.gnome.desktop.interface"),
            QStringLiteral("enable-animations") };
    }
    Setting animationDuration()
    {
        return { QStringLiteral("org.kde.kdeglobals.KDE"),
            QStringLiteral("AnimationDurationFactor") };
    }

} // namespace

PortalSettings::PortalSettings(const QDBusConnection& bus, QObject* parent)
    : QObject(parent)
{
    auto connection = bus;
    if (!connection.isConnected())
        return;
    connection.connect(portalService, portalPath, interface, QStringLiteral("SettingChanged"), this,
        SLOT(settingChanged(QString, QString, QDBusVariant)));
    for (const auto& setting : { colourScheme(), animations(), animationDuration() })
        ask(connection, setting.space, setting.key);
}

void PortalSettings::ask(QDBusConnection& connection, const QString& space, const QString& key)
{
    auto question = QDBusMessage::createMethodCall(
        portalService, portalPath, interface, QStringLiteral("Read"));
    question << space << key;
    auto* answer = new QDBusPendingCallWatcher(connection.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, space, key] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (reply.isValid())
            accept(space, key, reply.value().variant());
    });
}

void PortalSettings::settingChanged(
    const QString& space, const QString& key, const QDBusVariant& value)
{
    accept(space, key, value.variant());
}

void PortalSettings::accept(const QString& space, const QString& key, const QVariant& value)
{
    // "Read" answers with a variant in a variant.
    const bool isNested = value.canConvert<QDBusVariant>();
    const auto told = isNested ? value.value<QDBusVariant>().variant() : value;
    const Setting setting { space, key };
    if (setting == colourScheme())
        m_isDark.set(told.toUInt() == prefersDark);
    else if (setting == animations()) {
        m_areAnimationsOn = told.typeId() != QMetaType::Bool || told.toBool();
        tellAnimated();
    } else if (setting == animationDuration()) {
        bool isNumber = false;
        const double factor = told.toDouble(&isNumber); // a number, or one written out
        m_haveAnimationsTime = !isNumber || factor > 0;
        tellAnimated();
    }
}

} // namespace korvane
