#include "platform/x11/X11KeyRecorder.h"

#include "KeyRecorderFixture.h"

#include <gtest/gtest.h>

#include <chrono>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    namespace keys = test::keys;
    using test::TestWindow;
    using test::waitUntil;

    using test::keyA;
    using test::KeyRecorderFixture;

    TEST(X11KeyRecorderKeyboardTest, AfterItsEndKeysGoWhereTheyBelong)
    {
        KeyRecorderFixture f;
        ASSERT_TRUE(f.start());
        f.type({ keyA });

        f.recorder->stop();
        f.deliverEvents();
        f.type({ keys::f9 });

        EXPECT_EQ(f.heard.size(), 1U);
        const auto received = f.window.takeKeys();
        ASSERT_EQ(received.size(), 1U);
        EXPECT_EQ(received[0].key, keys::f9);
    }

    TEST(X11KeyRecorderKeyboardTest, AKeyThatIsStillDownAtTheEndActsNowhereElse)
    {
        KeyRecorderFixture f;
        int repetitions = 0;
        const auto seen = f.connection.onEvent(XCB_KEY_PRESS, [&](const auto&) { ++repetitions; });
        ASSERT_TRUE(f.start());
        f.input.press(keyA);
        f.deliverEvents();

        f.recorder->stop();
        EXPECT_TRUE(waitUntil([&] { return repetitions > 3; }));
        EXPECT_FALSE(f.isKeyboardFree());
        f.input.release(keyA);
        f.deliverEvents();

        EXPECT_TRUE(f.isKeyboardFree());
        EXPECT_EQ(f.heard.size(), 1U);
        EXPECT_TRUE(f.window.takeKeys().empty());
    }

    TEST(X11KeyRecorderKeyboardTest, AKeyThatIsStuckDoesNotCostTheUserTheKeyboard)
    {
        KeyRecorderFixture f;
        ASSERT_TRUE(f.start());
        f.input.press(keyA);
        f.deliverEvents();
        f.recorder->stop();
        ASSERT_FALSE(f.isKeyboardFree());

        f.clock.advance(2s);
        f.deliverEvents();

        EXPECT_TRUE(f.isKeyboardFree());
    }

    TEST(X11KeyRecorderKeyboardTest, AnotherRecordingMayBeginWhileTheLastKeyIsStillDown)
    {
        KeyRecorderFixture f;
        ASSERT_TRUE(f.start());
        f.input.press(keyA);
        f.deliverEvents();
        f.recorder->stop();

        EXPECT_TRUE(f.recorder->start(f.window.id()));
        f.clock.advance(2s);
        f.input.release(keyA);
        f.type({ keys::control, keys::f9 });

        EXPECT_FALSE(f.isKeyboardFree());
        ASSERT_EQ(f.heard.size(), 2U);
        EXPECT_EQ(f.heard[1].keyCode, 101U);
    }

    TEST(X11KeyRecorderKeyboardTest, WhereAnotherProgramHasTheKeyboardTheWindowsOwnKeysAreHeard)
    {
        KeyRecorderFixture f;
        ASSERT_TRUE(f.bringToFront(f.window));
        ASSERT_TRUE(f.holdKeyboard());

        EXPECT_FALSE(f.recorder->start(f.window.id()));
        f.recorder->windowKeyPressed(keyA, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_4);
        f.recorder->windowKeyPressed(keys::control, 0);
        f.recorder->windowKeyPressed(1000, 0);

        ASSERT_EQ(f.heard.size(), 1U);
        EXPECT_EQ(f.heard[0].keyCode, 0U);
        EXPECT_EQ(f.heard[0].modifiers, modifiers::control | modifiers::command);
        EXPECT_EQ(f.heard[0].characters, "a");
        EXPECT_EQ(f.unnamed, 0);
    }

    TEST(X11KeyRecorderKeyboardTest, TheWindowsOwnKeysAreNotHeardTwiceNorWithoutARecording)
    {
        KeyRecorderFixture f;
        f.recorder->windowKeyPressed(keyA, XCB_MOD_MASK_CONTROL);
        EXPECT_TRUE(f.heard.empty());
        ASSERT_TRUE(f.start());

        f.recorder->windowKeyPressed(keyA, XCB_MOD_MASK_CONTROL);

        EXPECT_TRUE(f.heard.empty());
    }

    TEST(X11KeyRecorderKeyboardTest, TheKeyboardIsTakenAsSoonAsTheOtherProgramLetsGo)
    {
        KeyRecorderFixture f;
        ASSERT_TRUE(f.bringToFront(f.window));
        ASSERT_TRUE(f.holdKeyboard());
        EXPECT_FALSE(f.recorder->start(f.window.id()));

        xcb_ungrab_keyboard(f.otherProgram.get(), XCB_CURRENT_TIME);
        f.otherProgram.sync();

        EXPECT_TRUE(waitUntil([&] { return f.recorder->hasKeyboard(); }));
        f.type({ keys::control, keyA });
        EXPECT_EQ(f.heard.size(), 1U);
    }

    TEST(X11KeyRecorderKeyboardTest, WhoeverGoesToAnotherWindowTypesThere)
    {
        KeyRecorderFixture f;
        TestWindow other(f.otherProgram);
        ASSERT_TRUE(f.bringToFront(other));
        ASSERT_TRUE(f.start());

        f.giveKeyboardTo(other);
        ASSERT_TRUE(waitUntil([&] { return !f.recorder->hasKeyboard(); }));
        f.deliverEvents();
        other.takeKeys();
        f.type({ keys::f9 });

        EXPECT_TRUE(f.heard.empty());
        EXPECT_EQ(other.takeKeys().size(), 1U);
    }

    TEST(X11KeyRecorderKeyboardTest, WhoeverComesBackIsHeardAgain)
    {
        KeyRecorderFixture f;
        TestWindow other(f.otherProgram);
        ASSERT_TRUE(f.bringToFront(other));
        ASSERT_TRUE(f.start());
        f.giveKeyboardTo(other);
        ASSERT_TRUE(waitUntil([&] { return !f.recorder->hasKeyboard(); }));

        f.giveKeyboardTo(f.window);

        ASSERT_TRUE(waitUntil([&] { return f.recorder->hasKeyboard(); }));
        f.type({ keys::control, keyA });
        EXPECT_EQ(f.heard.size(), 1U);
    }

    TEST(X11KeyRecorderKeyboardTest, AfterItsEndNobodysComingTakesTheKeyboard)
    {
        KeyRecorderFixture f;
        TestWindow other(f.otherProgram);
        ASSERT_TRUE(f.bringToFront(other));
        ASSERT_TRUE(f.start());
        f.recorder->stop();

        f.giveKeyboardTo(other);
        f.giveKeyboardTo(f.window);
        f.deliverEvents();

        EXPECT_TRUE(f.isKeyboardFree());
    }

    TEST(X11KeyRecorderKeyboardTest, AKeyboardOnWhichNobodyTypesIsGivenBackAfterHalfAMinute)
    {
        KeyRecorderFixture f;
        int times = 0;
        const auto connection = f.recorder->gaveUp.connect([&times] { ++times; });
        ASSERT_TRUE(f.start());
        f.clock.advance(20s);
        f.type({ keyA });
        f.clock.advance(29s);
        EXPECT_EQ(times, 0);
        EXPECT_FALSE(f.isKeyboardFree());

        f.clock.advance(1s);
        f.deliverEvents();

        EXPECT_EQ(times, 1);
        EXPECT_TRUE(f.isKeyboardFree());
    }

    TEST(X11KeyRecorderKeyboardTest, AKeyThatIsStuckDoesNotKeepTheKeyboard)
    {
        KeyRecorderFixture f;
        ASSERT_TRUE(f.start());
        f.input.press(keyA);
        f.deliverEvents();

        f.clock.advance(30s);
        f.deliverEvents();

        EXPECT_TRUE(f.isKeyboardFree());
    }

    TEST(X11KeyRecorderKeyboardTest, WhatHasEndedInTimeIsNotGivenUpLater)
    {
        KeyRecorderFixture f;
        int times = 0;
        const auto connection = f.recorder->gaveUp.connect([&times] { ++times; });
        ASSERT_TRUE(f.start());
        f.recorder->stop();

        f.clock.advance(60s);

        EXPECT_EQ(times, 0);
    }

    TEST(X11KeyRecorderKeyboardTest, ItsEndFreesTheKeyboard)
    {
        KeyRecorderFixture f;
        ASSERT_TRUE(f.start());
        f.input.press(keyA);
        f.deliverEvents();

        f.recorder.reset();
        f.deliverEvents();

        EXPECT_TRUE(f.isKeyboardFree());
    }

} // namespace
} // namespace korvane
