#include "platform/x11/X11Connection.h"

#include "platform/qt/QtMainLoop.h"

#include "support/EventLoop.h"

#include <gtest/gtest.h>

#include <xcb/xcbext.h>
#include <xcb/xfixes.h>

#include <QProcess>

#include <array>
#include <string>
#include <vector>

namespace korvane {
namespace {

    using test::waitUntil;

    /// A connection with a window of its own whose changes of properties are told.
    struct WatchedWindow {
        WatchedWindow()
        {
            constexpr std::array<std::uint32_t, 1> events { XCB_EVENT_MASK_PROPERTY_CHANGE };
            xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, window, connection.root(), 0,
                0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                events.data());
        }
        void change(xcb_atom_t property)
        {
            xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, window, property,
                XCB_ATOM_STRING, 8, 1, "x");
        }
        /// When this returns, what has been requested has happened, and we have been told.
        void roundTrip()
        {
            connection.reply(xcb_get_input_focus_reply, xcb_get_input_focus(connection.get()));
        }
        Connection onChange(std::function<void(xcb_atom_t)> slot)
        {
            return connection.onEvent(
                XCB_PROPERTY_NOTIFY, [slot = std::move(slot)](const xcb_generic_event_t& event) {
                    slot(reinterpret_cast<const xcb_property_notify_event_t&>(event).atom);
                });
        }

        QtMainLoop loop;
        X11Connection connection { loop };
        xcb_window_t window = xcb_generate_id(connection.get());
    };

    /// Another display as the one that new connections are made to.
    class OtherDisplay {
    public:
        explicit OtherDisplay(const QByteArray& name)
            : m_before(qgetenv("DISPLAY"))
        {
            qputenv("DISPLAY", name);
        }
        OtherDisplay(const OtherDisplay&) = delete;
        OtherDisplay& operator=(const OtherDisplay&) = delete;
        ~OtherDisplay() { qputenv("DISPLAY", m_before); }

    private:
        QByteArray m_before;
    };

    TEST(X11ConnectionTest, ANameAlwaysHasTheSameAtom)
    {
        WatchedWindow f;
        QtMainLoop otherLoop;
        X11Connection other(otherLoop);

        EXPECT_EQ(f.connection.atom("PRIMARY"), XCB_ATOM_PRIMARY);
        EXPECT_NE(f.connection.atom("KORVANE_TEST"), XCB_ATOM_NONE);
        EXPECT_EQ(f.connection.atom("KORVANE_TEST"), f.connection.atom("KORVANE_TEST"));
        EXPECT_EQ(f.connection.atom("KORVANE_TEST"), other.atom("KORVANE_TEST"));
    }

    TEST(X11ConnectionTest, AnExtensionThatTheServerLacksIsNone)
    {
        WatchedWindow f;
        xcb_extension_t unknown { "KORVANE-NO-SUCH-EXTENSION", 0 };

        EXPECT_TRUE(f.connection.extension(&xcb_xfixes_id).has_value());
        EXPECT_FALSE(f.connection.extension(&unknown).has_value());
    }

    TEST(X11ConnectionTest, ARequestThatTheServerRefusesHasNotSucceeded)
    {
        WatchedWindow f;

        // Not by mapping it: a window manager that is late would then write to the window of the
        // next test, which may have the same number.
        EXPECT_TRUE(f.connection.succeeded(
            xcb_delete_property_checked(f.connection.get(), f.window, XCB_ATOM_WM_NAME)));
        EXPECT_FALSE(f.connection.succeeded(
            xcb_delete_property_checked(f.connection.get(), 1, XCB_ATOM_WM_NAME)));
        EXPECT_EQ(
            f.connection.reply(xcb_get_geometry_reply, xcb_get_geometry(f.connection.get(), 1)),
            nullptr);
    }

    TEST(X11ConnectionTest, AnEventIsDelivered)
    {
        WatchedWindow f;
        std::vector<xcb_atom_t> changed;
        const auto slot = f.onChange([&](xcb_atom_t property) { changed.push_back(property); });

        f.change(XCB_ATOM_WM_NAME);
        f.connection.flush();

        EXPECT_TRUE(waitUntil([&] { return !changed.empty(); }));
        EXPECT_EQ(changed, std::vector<xcb_atom_t> { XCB_ATOM_WM_NAME });
    }

    TEST(X11ConnectionTest, AnEventThatComesWithAReplyIsDeliveredOnTheNextTurn)
    {
        WatchedWindow f;
        std::vector<xcb_atom_t> changed;
        const auto slot = f.onChange([&](xcb_atom_t property) { changed.push_back(property); });

        f.change(XCB_ATOM_WM_NAME);
        f.roundTrip(); // the event is read with it: the descriptor says nothing any more
        const auto toldMeanwhile = changed.size();

        EXPECT_EQ(toldMeanwhile, 0U);
        EXPECT_TRUE(waitUntil([&] { return !changed.empty(); }));
    }

    TEST(X11ConnectionTest, AnEventThatIsTakenIsNotDelivered)
    {
        WatchedWindow f;
        std::vector<xcb_atom_t> changed;
        const auto slot = f.onChange([&](xcb_atom_t property) { changed.push_back(property); });
        f.change(XCB_ATOM_WM_NAME);
        f.roundTrip();

        const auto taken = f.connection.takeArrived(XCB_PROPERTY_NOTIFY);
        f.change(XCB_ATOM_WM_CLASS);
        f.roundTrip();

        EXPECT_EQ(taken.size(), 1U);
        EXPECT_TRUE(waitUntil([&] { return !changed.empty(); }));
        EXPECT_EQ(changed, std::vector<xcb_atom_t> { XCB_ATOM_WM_CLASS });
    }

    TEST(X11ConnectionTest, AnEventThatAnotherClientSentIsDeliveredUnderItsType)
    {
        WatchedWindow f;
        std::string heard;
        const auto slot
            = f.connection.onEvent(XCB_CLIENT_MESSAGE, [&](const auto&) { heard += 'm'; });
        xcb_client_message_event_t message {};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = f.window;

        xcb_send_event(f.connection.get(), 0, f.window, XCB_EVENT_MASK_NO_EVENT,
            reinterpret_cast<const char*>(&message));
        f.connection.flush();

        EXPECT_TRUE(waitUntil([&] { return !heard.empty(); }));
    }

    TEST(X11ConnectionTest, AFloodOfEventsIsDeliveredInOrderAndLetsOthersHaveTheirTurn)
    {
        WatchedWindow f;
        std::size_t heard = 0;
        std::size_t heardBeforeOthersTurn = 0;
        const auto slot = f.onChange([&](xcb_atom_t) {
            if (heard++ == 0)
                f.loop.post([&] { heardBeforeOthersTurn = heard; });
        });

        for (int i = 0; i < 1000; ++i)
            f.change(XCB_ATOM_WM_NAME);
        f.roundTrip();

        EXPECT_TRUE(waitUntil([&] { return heard == 1000; }));
        EXPECT_GT(heardBeforeOthersTurn, 0U);
        EXPECT_LT(heardBeforeOthersTurn, 1000U);
    }

    TEST(X11ConnectionTest, WithoutAServerItIsNotOpenAndAnswersNothing)
    {
        const OtherDisplay nowhere("localhost/none:0");
        QtMainLoop loop;

        X11Connection connection(loop);

        EXPECT_FALSE(connection.isOpen());
        EXPECT_EQ(connection.root(), XCB_NONE);
        EXPECT_EQ(connection.atom("PRIMARY"), XCB_ATOM_NONE);
        EXPECT_FALSE(connection.extension(&xcb_xfixes_id).has_value());
    }

    TEST(X11ConnectionTest, TheEndOfTheServerIsToldOnce)
    {
        QProcess server;
        server.start(QStringLiteral("Xvfb"),
            { QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-nolisten"),
                QStringLiteral("tcp") });
        ASSERT_TRUE(waitUntil([&] { return server.canReadLine(); }));
        const OtherDisplay other(":" + server.readLine().trimmed());
        QtMainLoop loop;
        X11Connection connection(loop);
        EXPECT_TRUE(connection.isOpen());
        int closed = 0;
        const auto slot = connection.closed.connect([&] { ++closed; });

        server.kill();
        EXPECT_TRUE(waitUntil([&] { return closed > 0; }));
        server.waitForFinished();
        connection.atom("AFTER_THE_END");

        EXPECT_FALSE(connection.isOpen());
        EXPECT_EQ(closed, 1);
    }

} // namespace
} // namespace korvane
