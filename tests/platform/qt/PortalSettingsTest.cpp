#include "platform/qt/PortalSettings.h"

#include "support/EventLoop.h"
#include "support/SessionBus.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QMap>

#include <gtest/gtest.h>

#include <utility>

namespace korvane {
namespace {

    using test::SessionBus;
    using test::waitUntil;

    constexpr auto path = "/org/freedesktop/portal/desktop";
    constexpr auto interface = "org.freedesktop.portal.Settings";
    constexpr auto space = "org.freedesktop.appearance";

    /// The desktop's portal, with a user who may change their mind.
    class Portal : public QDBusVirtualObject {
    public:
        /// @param settings  by "namespace key"; it knows no other
        Portal(const QDBusConnection& bus, QMap<QString, QVariant> settings)
            : m_bus(bus)
            , m_settings(std::move(settings))
        {
            EXPECT_TRUE(m_bus.registerVirtualObject(path, this));
            EXPECT_TRUE(m_bus.registerService("org.freedesktop.portal.Desktop"));
        }

        QString introspect(const QString&) const override { return {}; }
        bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override
        {
            const auto question = message.arguments();
            const auto known = m_settings.constFind(
                question.value(0).toString() + u' ' + question.value(1).toString());
            if (known == m_settings.constEnd()) {
                bus.send(message.createErrorReply(
                    "org.freedesktop.portal.Error.NotFound", "Requested setting not found"));
                return true;
            }
            // A variant in a variant, as this call has always answered.
            const auto inner = QVariant::fromValue(QDBusVariant(*known));
            bus.send(message.createReply(QVariant::fromValue(QDBusVariant(inner))));
            return true;
        }
        void change(const QString& key, const QVariant& value, const QString& inSpace = space)
        {
            auto signal = QDBusMessage::createSignal(path, interface, "SettingChanged");
            signal << inSpace << key << QVariant::fromValue(QDBusVariant(value));
            m_bus.send(signal);
        }

    private:
        QDBusConnection m_bus;
        QMap<QString, QVariant> m_settings;
    };

    struct PortalFixture {
        explicit PortalFixture(uint preferred)
            : PortalFixture(
                { { QStringLiteral("org.freedesktop.appearance color-scheme"), preferred } })
        {
        }
        explicit PortalFixture(QMap<QString, QVariant> settings)
            : portal(bus.connection("portal"), std::move(settings))
        {
        }

        SessionBus bus;
        Portal portal;
        PortalSettings scheme { bus.connection("korvane") };
    };

    TEST(PortalSettingsTest, ADesktopThatPrefersDarkIsDarkOnceItHasAnswered)
    {
        PortalFixture f(1);
        EXPECT_FALSE(f.scheme.isDark().value());

        EXPECT_TRUE(waitUntil([&] { return f.scheme.isDark().value(); }));
        EXPECT_TRUE(f.scheme.isAnimated().value());
    }

    TEST(PortalSettingsTest, ADesktopThatAsksForNoAnimationsGetsNoneOnceItHasAnswered)
    {
        for (const auto& [name, value] : QMap<QString, QVariant> {
                 { "org.gnome.desktop.interface enable-animations", false },
                 { "org.kde.kdeglobals.KDE AnimationDurationFactor",
                     "0" } }.asKeyValueRange()) {
            PortalFixture f({ { name, value } });
            EXPECT_TRUE(f.scheme.isAnimated().value());

            EXPECT_TRUE(waitUntil([&] { return !f.scheme.isAnimated().value(); }));
            EXPECT_FALSE(f.scheme.isDark().value());
        }
    }

    TEST(PortalSettingsTest, AnimationsThatAreTurnedOnAgainAreBack)
    {
        const QString gnome = "org.gnome.desktop.interface";
        const QString kde = "org.kde.kdeglobals.KDE";
        PortalFixture f({ { gnome + " enable-animations", false } });
        ASSERT_TRUE(waitUntil([&] { return !f.scheme.isAnimated().value(); }));

        f.portal.change("enable-animations", true, gnome);
        EXPECT_TRUE(waitUntil([&] { return f.scheme.isAnimated().value(); }));
        f.portal.change("AnimationDurationFactor", 0.0, kde);
        EXPECT_TRUE(waitUntil([&] { return !f.scheme.isAnimated().value(); }));
        f.portal.change("AnimationDurationFactor", QStringLiteral("0.5"), kde);
        EXPECT_TRUE(waitUntil([&] { return f.scheme.isAnimated().value(); }));
    }

    TEST(PortalSettingsTest, OneWishForNoAnimationsIsEnoughWhateverTheOtherKeySays)
    {
        PortalFixture f({ { "org.gnome.desktop.interface enable-animations", false },
            { "org.kde.kdeglobals.KDE AnimationDurationFactor", 1.0 } });
        ASSERT_TRUE(waitUntil([&] { return !f.scheme.isAnimated().value(); }));

        f.portal.change("AnimationDurationFactor", 2.0, "org.kde.kdeglobals.KDE");
        f.portal.change("color-scheme", 1U);
        ASSERT_TRUE(waitUntil([&] { return f.scheme.isDark().value(); }));

        EXPECT_FALSE(f.scheme.isAnimated().value());
    }

    TEST(PortalSettingsTest, AChangeIsFollowedInBothDirections)
    {
        PortalFixture f(1);
        ASSERT_TRUE(waitUntil([&] { return f.scheme.isDark().value(); }));

        f.portal.change("color-scheme", 2U);
        EXPECT_TRUE(waitUntil([&] { return !f.scheme.isDark().value(); }));
        f.portal.change("color-scheme", 1U);
        EXPECT_TRUE(waitUntil([&] { return f.scheme.isDark().value(); }));
        f.portal.change("color-scheme", 0U);

        EXPECT_TRUE(waitUntil([&] { return !f.scheme.isDark().value(); }));
    }

    TEST(PortalSettingsTest, AnotherSettingChangesNothing)
    {
        PortalFixture f(1);
        ASSERT_TRUE(waitUntil([&] { return f.scheme.isDark().value(); }));
        int changes = 0;
        const auto listening = f.scheme.isDark().onChange([&](bool) { ++changes; });

        f.portal.change("contrast", 0U);
        f.portal.change("color-scheme", 2U);
        EXPECT_TRUE(waitUntil([&] { return !f.scheme.isDark().value(); }));

        EXPECT_EQ(changes, 1);
    }

    TEST(PortalSettingsTest, AnAnswerOfAnotherKindIsLight)
    {
        PortalFixture f(1);
        ASSERT_TRUE(waitUntil([&] { return f.scheme.isDark().value(); }));

        f.portal.change("color-scheme", QStringLiteral("dark"));

        EXPECT_TRUE(waitUntil([&] { return !f.scheme.isDark().value(); }));
    }

    TEST(PortalSettingsTest, WithoutAPortalItIsLight)
    {
        SessionBus bus;
        auto connection = bus.connection("korvane");
        PortalSettings scheme(connection);

        // The question has been refused when a later one has been answered.
        const auto answer = connection.call(QDBusMessage::createMethodCall(
            "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetId"));

        EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage);
        EXPECT_FALSE(scheme.isDark().value());
    }

    TEST(PortalSettingsTest, WithoutABusItIsLight)
    {
        const auto nowhere = QDBusConnection::connectToBus("unix:path=/nonexistent", "nowhere");

        PortalSettings scheme(nowhere);

        EXPECT_FALSE(scheme.isDark().value());
    }

} // namespace
} // namespace korvane
