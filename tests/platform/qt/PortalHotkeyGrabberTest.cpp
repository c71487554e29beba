#include "platform/qt/PortalHotkeyGrabber.h"

#include "ShortcutPortal.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using test::ShortcutPortal;
    using test::waitUntil;
    using Answer = ShortcutPortal::Answer;
    using Asked = std::vector<std::string>;

    const std::string bind = "bind|open|Open Korvane|";

    struct GrabberFixture {
        bool grab() { return grabber.grab(keycodes::space, modifiers::control); }
        bool isBoundSoon()
        {
            return waitUntil([this] { return grabber.isBound().value(); });
        }
        bool settle() { return portal.settle(connection); }
        /// What the portal was asked, once the whole talk with it has come to its end.
        Asked talk()
        {
            for (int turn = 0; turn < 4; ++turn)
                EXPECT_TRUE(settle());
            return portal.asked();
        }

        test::SessionBus bus;
        ShortcutPortal portal { bus };
        QDBusConnection connection = bus.connection("korvane");
        std::string trigger = "CTRL+space";
        PortalHotkeyGrabber grabber { [this](KeyCode, ModifierMask) { return trigger; },
            connection };
        int presses = 0;
        Connection pressed = grabber.pressed.connect([this] { ++presses; });
    };

    TEST(PortalHotkeyGrabberTest, TheChordIsProposedAndThePressOfWhatTheUserChoseIsTold)
    {
        GrabberFixture f;

        ASSERT_TRUE(f.grab());
        ASSERT_TRUE(f.isBoundSoon());
        f.portal.press(f.portal.sessions().back());
        f.portal.press(f.portal.sessions().back());

        EXPECT_TRUE(waitUntil([&] { return f.presses == 2; }));
        EXPECT_EQ(f.portal.asked(), (Asked { "session", bind + "CTRL+space" }));
    }

    TEST(PortalHotkeyGrabberTest, AChordWithoutANameIsLeftToTheUser)
    {
        GrabberFixture f;
        f.trigger.clear();

        ASSERT_TRUE(f.grab());

        EXPECT_TRUE(f.isBoundSoon());
        EXPECT_EQ(f.portal.asked(), (Asked { "session", bind }));
    }

    TEST(PortalHotkeyGrabberTest, WhatThePortalDoesNotGiveIsNotBound)
    {
        for (const auto answer : { Answer::nothing, Answer::refused }) {
            GrabberFixture f;
            f.portal.answers = answer;

            EXPECT_TRUE(f.grab());

            EXPECT_EQ(f.talk(), (Asked { "session", bind + "CTRL+space" }));
            EXPECT_FALSE(f.grabber.isBound().value());
        }
    }

    TEST(PortalHotkeyGrabberTest, WithoutASessionNothingIsBound)
    {
        GrabberFixture f;
        f.portal.answers = Answer::noSession;

        EXPECT_TRUE(f.grab());

        EXPECT_EQ(f.talk(), Asked { "session" });
        EXPECT_FALSE(f.grabber.isBound().value());
    }

    TEST(PortalHotkeyGrabberTest, APortalThatGivesNoShortcutsIsARefusal)
    {
        GrabberFixture f;
        f.portal.answers = Answer::notOffered;

        EXPECT_FALSE(f.grab());

        EXPECT_EQ(f.talk(), Asked {});
    }

    TEST(PortalHotkeyGrabberTest, APortalThatKeepsSilentIsWaitedForASecond)
    {
        GrabberFixture f;
        f.portal.answers = Answer::silence;
        QElapsedTimer elapsed;
        elapsed.start();

        EXPECT_FALSE(f.grab());

        EXPECT_GE(elapsed.elapsed(), 900);
        EXPECT_LT(elapsed.elapsed(), 10'000); // the bus's own patience is 25 seconds
        EXPECT_EQ(f.talk(), Asked {});
    }

    TEST(PortalHotkeyGrabberTest, WithoutAPortalOrABusItIsARefusal)
    {
        GrabberFixture f;
        f.portal.vanish();
        PortalHotkeyGrabber nowhere([](KeyCode, ModifierMask) { return std::string(); },
            QDBusConnection::connectToBus("unix:path=/nonexistent", "nowhere"));

        EXPECT_FALSE(f.grab());
        EXPECT_FALSE(nowhere.grab(keycodes::space, modifiers::control));
    }

    TEST(PortalHotkeyGrabberTest, WhatIsReleasedIsToldOfNoMore)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grab());
        ASSERT_TRUE(f.isBoundSoon());

        f.grabber.release();
        f.portal.press(f.portal.sessions().back());

        EXPECT_EQ(f.talk(), (Asked { "session", bind + "CTRL+space", "close" }));
        EXPECT_EQ(f.presses, 0);
        EXPECT_FALSE(f.grabber.isBound().value());
    }

    TEST(PortalHotkeyGrabberTest, WhatIsReleasedBeforeTheAnswerComesIsBoundToNothing)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grab());

        f.grabber.release();

        EXPECT_EQ(f.talk(), (Asked { "session", "close" }));
        EXPECT_FALSE(f.grabber.isBound().value());
    }

    TEST(PortalHotkeyGrabberTest, AnotherChordIsAskedForInASessionOfItsOwn)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grab());
        ASSERT_TRUE(f.isBoundSoon());
        f.trigger = "LOGO+v";

        ASSERT_TRUE(f.grab());
        ASSERT_TRUE(f.isBoundSoon());
        f.portal.press(f.portal.sessions().front());
        f.portal.press(f.portal.sessions().back(), "close");
        f.portal.press(f.portal.sessions().back());

        EXPECT_EQ(f.talk(),
            (Asked { "session", bind + "CTRL+space", "close", "session", bind + "LOGO+v" }));
        EXPECT_EQ(f.presses, 1);
    }

    TEST(PortalHotkeyGrabberTest, ASessionThatTheUserEndsIsNotBoundAnyMore)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grab());
        ASSERT_TRUE(f.isBoundSoon());

        f.portal.close(f.portal.sessions().back() + "0");
        ASSERT_TRUE(f.settle());
        EXPECT_TRUE(f.grabber.isBound().value());
        f.portal.close(f.portal.sessions().back());

        EXPECT_TRUE(waitUntil([&] { return !f.grabber.isBound().value(); }));
    }

    TEST(PortalHotkeyGrabberTest, APortalThatComesBackIsAskedAgain)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grab());
        ASSERT_TRUE(f.isBoundSoon());

        f.portal.vanish();
        EXPECT_TRUE(waitUntil([&] { return !f.grabber.isBound().value(); }));
        f.portal.appear();

        EXPECT_TRUE(f.isBoundSoon());
        f.portal.press(f.portal.sessions().back());
        EXPECT_TRUE(waitUntil([&] { return f.presses == 1; }));
    }

} // namespace
} // namespace korvane
