#include "platform/x11/X11HotkeyGrabber.h"

#include "X11Desk.h"

#include <xcb/xcb.h>

#include <gtest/gtest.h>

#include <array>

namespace korvane {
namespace {

    namespace keys = test::keys;
    using test::TestLayout;
    using test::waitUntil;

    struct GrabberFixture : test::X11Desk {
        X11HotkeyGrabber grabber { connection, keyMap };
        int presses = 0;
        Connection pressed = grabber.pressed.connect([this] { ++presses; });

        ~GrabberFixture()
        {
            for (const auto key : { keys::capsLock, keys::numLock })
                if (isLocked(key))
                    input.tap(key);
        }
        bool isLocked(xcb_keycode_t key)
        {
            const X11Reply<xcb_query_pointer_reply_t> answer(
                xcb_query_pointer_reply(otherProgram.get(),
                    xcb_query_pointer(otherProgram.get(), otherProgram.root()), nullptr));
            const int bit = key == keys::capsLock ? XCB_MOD_MASK_LOCK : XCB_MOD_MASK_2;
            return (answer->mask & bit) != 0;
        }
        /// Presses Control-Space and delivers what comes of it.
        void pressChord()
        {
            input.chord({ keys::control, keys::space });
            deliverEvents();
        }
        /// Can another program have this combination?
        bool isFreeForOthers(xcb_keycode_t key, int state)
        {
            const auto cookie = xcb_grab_key_checked(otherProgram.get(), 0, otherProgram.root(),
                static_cast<std::uint16_t>(state), key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
            if (!otherProgram.succeeded(cookie))
                return false;
            xcb_ungrab_key(
                otherProgram.get(), key, otherProgram.root(), static_cast<std::uint16_t>(state));
            otherProgram.sync();
            return true;
        }
    };

    TEST(X11HotkeyGrabberTest, ThePressOfTheChordIsTold)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grabber.grab(keycodes::space, modifiers::control));

        f.pressChord();

        EXPECT_EQ(f.presses, 1);
    }

    TEST(X11HotkeyGrabberTest, PressingTwiceIsToldTwice)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grabber.grab(keycodes::space, modifiers::control));

        f.pressChord();
        f.pressChord();

        EXPECT_EQ(f.presses, 2);
    }

    TEST(X11HotkeyGrabberTest, OtherChordsOfTheKeyAreNotTaken)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grabber.grab(keycodes::space, modifiers::control));

        f.input.tap(keys::space);
        f.input.chord({ keys::control, keys::shift, keys::space });
        f.deliverEvents();

        EXPECT_EQ(f.presses, 0);
    }

    TEST(X11HotkeyGrabberTest, EachModifierIsTheKeyOfItsKind)
    {
        GrabberFixture f;
        const auto chords = std::to_array<std::pair<ModifierMask, std::vector<xcb_keycode_t>>>({
            { modifiers::shift, { keys::shift, keys::f9 } },
            { modifiers::option, { keys::alt, keys::f9 } },
            { modifiers::command, { keys::super, keys::f9 } },
            { modifiers::all, { keys::control, keys::alt, keys::shift, keys::super, keys::f9 } },
            { 0, { keys::f9 } },
        });
        for (const auto& [mask, chord] : chords) {
            f.presses = 0;
            ASSERT_TRUE(f.grabber.grab(101, mask)) << mask;

            f.input.chord(chord);
            f.deliverEvents();

            EXPECT_EQ(f.presses, 1) << mask;
        }
    }

    TEST(X11HotkeyGrabberTest, TheLockKeysMakeNoDifference)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grabber.grab(keycodes::space, modifiers::control));

        f.input.tap(keys::capsLock);
        f.pressChord();
        ASSERT_TRUE(f.isLocked(keys::capsLock));
        EXPECT_EQ(f.presses, 1);
        f.input.tap(keys::numLock);
        f.pressChord();
        ASSERT_TRUE(f.isLocked(keys::numLock));
        EXPECT_EQ(f.presses, 2);
        f.input.tap(keys::capsLock);
        f.pressChord();
        ASSERT_FALSE(f.isLocked(keys::capsLock));
        EXPECT_EQ(f.presses, 3);
    }

    TEST(X11HotkeyGrabberTest, ASecondLayoutInForceMakesNoDifference)
    {
        const TestLayout layout({ "-layout", "us,ru", "-option", "grp:lctrl_toggle" });
        ASSERT_TRUE(layout.isSet);
        GrabberFixture f;
        ASSERT_TRUE(f.grabber.grab(101, modifiers::shift));

        f.input.tap(keys::control); // changes to the second layout
        f.input.chord({ keys::shift, keys::f9 });
        f.deliverEvents();

        EXPECT_EQ(f.presses, 1);
    }

    TEST(X11HotkeyGrabberTest, AChordThatAnotherProgramHoldsIsRefused)
    {
        GrabberFixture f;
        QtMainLoop loop;
        X11Connection others(loop);
        KeyMap othersKeyMap(others, loop);
        X11HotkeyGrabber holder(others, othersKeyMap);
        ASSERT_TRUE(holder.grab(keycodes::space, modifiers::control));

        EXPECT_FALSE(f.grabber.grab(keycodes::space, modifiers::control));
    }

    TEST(X11HotkeyGrabberTest, OneRefusalIsARefusalOfTheWholeAndNothingIsKept)
    {
        GrabberFixture f;
        // Only Control-Space with Caps Lock on is taken.
        ASSERT_TRUE(f.otherProgram.succeeded(xcb_grab_key_checked(f.otherProgram.get(), 0,
            f.otherProgram.root(), XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_LOCK, keys::space,
            XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));

        EXPECT_FALSE(f.grabber.grab(keycodes::space, modifiers::control));

        f.deliverEvents();
        for (const int locks : { 0, int { XCB_MOD_MASK_2 }, XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2 })
            EXPECT_TRUE(f.isFreeForOthers(keys::space, XCB_MOD_MASK_CONTROL | locks)) << locks;
        f.pressChord();
        EXPECT_EQ(f.presses, 0);
    }

    TEST(X11HotkeyGrabberTest, EveryStateOfTheLockKeysIsTakenFromOthers)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grabber.grab(keycodes::space, modifiers::control));

        for (const int locks : { 0, int { XCB_MOD_MASK_LOCK }, int { XCB_MOD_MASK_2 },
                 XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2 })
            EXPECT_FALSE(f.isFreeForOthers(keys::space, XCB_MOD_MASK_CONTROL | locks)) << locks;
    }

    TEST(X11HotkeyGrabberTest, ANewChordReplacesTheOld)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grabber.grab(keycodes::space, modifiers::control));
        ASSERT_TRUE(f.grabber.grab(101, modifiers::control));

        f.pressChord();
        EXPECT_EQ(f.presses, 0);
        EXPECT_TRUE(f.isFreeForOthers(keys::space, XCB_MOD_MASK_CONTROL));
        f.input.chord({ keys::control, keys::f9 });
        f.deliverEvents();
        EXPECT_EQ(f.presses, 1);
    }

    TEST(X11HotkeyGrabberTest, AReleasedChordIsFreeAgain)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grabber.grab(keycodes::space, modifiers::control));

        f.grabber.release();
        f.pressChord();

        EXPECT_EQ(f.presses, 0);
        EXPECT_TRUE(f.isFreeForOthers(keys::space, XCB_MOD_MASK_CONTROL));
    }

    TEST(X11HotkeyGrabberTest, AKeyThatDoesNotExistIsRefused)
    {
        GrabberFixture f;

        EXPECT_FALSE(f.grabber.grab(127, modifiers::control));
        EXPECT_FALSE(f.grabber.grab(0xFFFFFFFF, modifiers::control));
    }

    TEST(X11HotkeyGrabberTest, AHeldChordIsToldOnce)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grabber.grab(keycodes::space, modifiers::control));
        int repetitions = 0;
        const auto seen = f.connection.onEvent(XCB_KEY_PRESS, [&](const auto&) { ++repetitions; });

        f.input.press(keys::control);
        f.input.press(keys::space);
        EXPECT_TRUE(waitUntil([&] { return repetitions > 3; }));
        f.input.release(keys::space);
        f.input.release(keys::control);
        f.deliverEvents();
        EXPECT_EQ(f.presses, 1);

        f.pressChord();
        EXPECT_EQ(f.presses, 2);
    }

    TEST(X11HotkeyGrabberTest, TheTimeOfThePressIsKept)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grabber.grab(keycodes::space, modifiers::control));
        EXPECT_EQ(f.grabber.lastPressTime(), static_cast<xcb_timestamp_t>(XCB_CURRENT_TIME));
        xcb_timestamp_t told = XCB_CURRENT_TIME;
        const auto seen = f.connection.onEvent(XCB_KEY_PRESS, [&](const auto& event) {
            told = reinterpret_cast<const xcb_key_press_event_t&>(event).time;
        });

        f.pressChord();

        EXPECT_NE(told, static_cast<xcb_timestamp_t>(XCB_CURRENT_TIME));
        EXPECT_EQ(f.grabber.lastPressTime(), told);
    }

    TEST(X11HotkeyGrabberTest, ItWorksOnAfterAChangeOfLayout)
    {
        GrabberFixture f;
        ASSERT_TRUE(f.grabber.grab(keycodes::space, modifiers::control));

        const TestLayout layout({ "-layout", "fr" });
        ASSERT_TRUE(layout.isSet);
        f.deliverEvents();
        f.pressChord();

        EXPECT_EQ(f.presses, 1);
    }

    TEST(X11HotkeyGrabberTest, TheGrabFollowsAKeyThatGetsAnotherCode)
    {
        GrabberFixture f;
        constexpr KeyCode home = 115;
        ASSERT_TRUE(f.grabber.grab(home, modifiers::control));
        EXPECT_FALSE(f.isFreeForOthers(110, XCB_MOD_MASK_CONTROL));

        const TestLayout layout({ "-layout", "us", "-keycodes", "xfree86" });
        ASSERT_TRUE(layout.isSet);

        constexpr xcb_keycode_t homeWithOlderDriver = 97;
        ASSERT_TRUE(waitUntil([&] { return f.keyMap.keyAt(home) == homeWithOlderDriver; }));
        EXPECT_TRUE(waitUntil(
            [&] { return !f.isFreeForOthers(homeWithOlderDriver, XCB_MOD_MASK_CONTROL); }));
        EXPECT_TRUE(f.isFreeForOthers(110, XCB_MOD_MASK_CONTROL));
    }

    TEST(X11HotkeyGrabberTest, ItsEndFreesTheChord)
    {
        GrabberFixture f;
        {
            X11HotkeyGrabber grabber(f.connection, f.keyMap);
            ASSERT_TRUE(grabber.grab(101, modifiers::control));
            EXPECT_FALSE(f.isFreeForOthers(keys::f9, XCB_MOD_MASK_CONTROL));
        }
        f.deliverEvents();

        EXPECT_TRUE(f.isFreeForOthers(keys::f9, XCB_MOD_MASK_CONTROL));
    }

    TEST(X11HotkeyGrabberTest, WithoutAServerTheChordIsRefused)
    {
        const auto display = qgetenv("DISPLAY");
        qputenv("DISPLAY", ":4000");
        QtMainLoop loop;
        X11Connection connection(loop);
        qputenv("DISPLAY", display);
        KeyMap keyMap(connection, loop);
        X11HotkeyGrabber grabber(connection, keyMap);

        EXPECT_FALSE(grabber.grab(keycodes::space, modifiers::control));
    }

} // namespace
} // namespace korvane
