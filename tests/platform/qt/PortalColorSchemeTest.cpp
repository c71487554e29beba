#include "platform/qt/PortalColorScheme.h"

#include "support/EventLoop.h"
#include "support/SessionBus.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>

#include <gtest/gtest.h>

#include <string>
#include <vector>

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
        Portal(const QDBusConnection& bus, uint scheme)
            : m_bus(bus)
            , m_scheme(scheme)
        {
            EXPECT_TRUE(m_bus.registerVirtualObject(path, this));
            EXPECT_TRUE(m_bus.registerService("org.freedesktop.portal.Desktop"));
        }

        QString introspect(const QString&) const override { return {}; }
        bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override
        {
            asked.push_back(message.arguments());
            // A variant in a variant, as this call has always answered.
            const auto inner = QVariant::fromValue(QDBusVariant(m_scheme));
            bus.send(message.createReply(QVariant::fromValue(QDBusVariant(inner))));
            return true;
        }
        void change(const QString& key, const QVariant& value)
        {
            auto signal = QDBusMessage::createSignal(path, interface, "SettingChanged");
            signal << QString(space) << key << QVariant::fromValue(QDBusVariant(value));
            m_bus.send(signal);
        }

        std::vector<QVariantList> asked;

    private:
        QDBusConnection m_bus;
        uint m_scheme;
    };

    struct PortalFixture {
        explicit PortalFixture(uint preferred)
            : portal(bus.connection("portal"), preferred)
        {
        }

        SessionBus bus;
        Portal portal;
        PortalColorScheme scheme { bus.connection("korvane") };
    };

    TEST(PortalColorSchemeTest, ADesktopThatPrefersDarkIsDarkOnceItHasAnswered)
    {
        PortalFixture f(1);
        EXPECT_FALSE(f.scheme.isDark().value());

        EXPECT_TRUE(waitUntil([&] { return f.scheme.isDark().value(); }));

        ASSERT_EQ(f.portal.asked.size(), 1U);
        EXPECT_EQ(f.portal.asked.front(),
            (QVariantList { QString(space), QStringLiteral("color-scheme") }));
    }

    TEST(PortalColorSchemeTest, AChangeIsFollowedInBothDirections)
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

    TEST(PortalColorSchemeTest, AnotherSettingChangesNothing)
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

    TEST(PortalColorSchemeTest, AnAnswerOfAnotherKindIsLight)
    {
        PortalFixture f(1);
        ASSERT_TRUE(waitUntil([&] { return f.scheme.isDark().value(); }));

        f.portal.change("color-scheme", QStringLiteral("dark"));

        EXPECT_TRUE(waitUntil([&] { return !f.scheme.isDark().value(); }));
    }

    TEST(PortalColorSchemeTest, WithoutAPortalItIsLight)
    {
        SessionBus bus;
        auto connection = bus.connection("korvane");
        PortalColorScheme scheme(connection);

        // The question has been refused when a later one has been answered.
        const auto answer = connection.call(QDBusMessage::createMethodCall(
            "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetId"));

        EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage);
        EXPECT_FALSE(scheme.isDark().value());
    }

    TEST(PortalColorSchemeTest, WithoutABusItIsLight)
    {
        const auto nowhere = QDBusConnection::connectToBus("unix:path=/nonexistent", "nowhere");

        PortalColorScheme scheme(nowhere);

        EXPECT_FALSE(scheme.isDark().value());
    }

} // namespace
} // namespace korvane
