#include "platform/x11/X11KeyRecorder.h"

#include "KeyRecorderFixture.h"
#include "platform/x11/X11HotkeyGrabber.h"

#include <gtest/gtest.h>

#include <utility>

namespace korvane {
namespace {

    namespace keys = test::keys;
    using test::TestLayout;
    using test::waitUntil;

    using test::keyA;
    using test::KeyRecorderFixture;

    TEST(X11KeyRecorderTest, AKeyPressIsHeardWithItsModifiersAndWhatItTypes)
    {
        KeyRecorderFixture f;
        ASSERT_TRUE(f.start());

        f.type({ keys::alt, keys::super, keyA });

        ASSERT_EQ(f.heard.size(), 1U);
        EXPECT_EQ(f.heard[0].keyCode, 0U);
        EXPECT_EQ(f.heard[0].modifiers, modifiers::option | modifiers::command);
        EXPECT_EQ(f.heard[0].characters, "a");
    }

    TEST(X11KeyRecorderTest, NothingIsHeardBeforeItBegins)
    {
        KeyRecorderFixture f;
        ASSERT_TRUE(f.bringToFront(f.window));

        f.type({ keys::control, keyA });

        EXPECT_TRUE(f.heard.empty());
        EXPECT_TRUE(f.isKeyboardFree());
    }

    TEST(X11KeyRecorderTest, EachModifierIsTheKeyOfItsKind)
    {
        KeyRecorderFixture f;
        ASSERT_TRUE(f.start());
        const auto chords = std::to_array<std::pair<xcb_keycode_t, ModifierMask>>({
            { keys::control, modifiers::control },
            { keys::alt, modifiers::option },
            { keys::shift, modifiers::shift },
            { keys::super, modifiers::command },
        });

        for (const auto& [key, mask] : chords) {
            f.heard.clear();
            f.type({ key, keys::f9 });

            ASSERT_EQ(f.heard.size(), 1U) << mask;
            EXPECT_EQ(f.heard[0].modifiers, mask);
            EXPECT_EQ(f.heard[0].keyCode, 101U);
            EXPECT_EQ(f.heard[0].characters, "");
        }
    }

    TEST(X11KeyRecorderTest, AModifierByItselfIsNoKeyPress)
    {
        KeyRecorderFixture f;
        ASSERT_TRUE(f.start());

        constexpr xcb_keycode_t altGr = 108;
        for (const auto key : { keys::control, keys::alt, keys::shift, keys::super, altGr })
            f.input.tap(key);
        f.deliverEvents();

        EXPECT_TRUE(f.heard.empty());
        EXPECT_EQ(f.unnamed, 0);
    }

    TEST(X11KeyRecorderTest, WhatIsPressedDoesNotReachTheProgramInFront)
    {
        KeyRecorderFixture f;
        ASSERT_TRUE(f.start());

        f.type({ keys::control, keyA });
        f.type({ keyA });

        EXPECT_EQ(f.heard.size(), 2U);
        EXPECT_TRUE(f.window.takeKeys().empty());
    }

    TEST(X11KeyRecorderTest, TheWindowManagersBindingsDoNotAct)
    {
        KeyRecorderFixture f;
        // A binding is a grab of its key on the root window.
        ASSERT_TRUE(f.otherProgram.succeeded(
            xcb_grab_key_checked(f.otherProgram.get(), 0, f.otherProgram.root(), XCB_MOD_MASK_4,
                keys::f9, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));
        ASSERT_TRUE(f.bringToFront(f.window));
        f.type({ keys::super, keys::f9 });
        ASSERT_EQ(f.takeBindings(), 1);

        ASSERT_TRUE(f.start());
        f.type({ keys::super, keys::f9 });

        EXPECT_EQ(f.heard.size(), 1U);
        EXPECT_EQ(f.takeBindings(), 0);
    }

    TEST(X11KeyRecorderTest, OurOwnShortcutDoesNotActAndIsRecordedLikeAnyOther)
    {
        KeyRecorderFixture f;
        X11HotkeyGrabber grabber(f.connection, f.keyMap);
        int presses = 0;
        const auto pressed = grabber.pressed.connect([&] { ++presses; });
        ASSERT_TRUE(grabber.grab(keycodes::space, modifiers::control));
        ASSERT_TRUE(f.start());

        f.type({ keys::control, keys::space });

        EXPECT_EQ(presses, 0);
        ASSERT_EQ(f.heard.size(), 1U);
        EXPECT_EQ(f.heard[0].keyCode, keycodes::space);
        EXPECT_EQ(f.heard[0].modifiers, modifiers::control);
    }

    TEST(X11KeyRecorderTest, AShortcutThatIsTakenWhileRecordingActsOnlyAtTheNextPress)
    {
        KeyRecorderFixture f;
        X11HotkeyGrabber grabber(f.connection, f.keyMap);
        int presses = 0;
        const auto pressed = grabber.pressed.connect([&] { ++presses; });
        const auto recorded = f.recorder->keyDown.connect([&](const KeyPress& press) {
            EXPECT_TRUE(grabber.grab(press.keyCode, press.modifiers));
            f.recorder->stop();
        });
        int repetitions = 0;
        const auto seen = f.connection.onEvent(XCB_KEY_PRESS, [&](const auto&) { ++repetitions; });
        ASSERT_TRUE(f.start());

        f.input.press(keys::control);
        f.input.press(keys::f9);
        EXPECT_TRUE(waitUntil([&] { return repetitions > 4; }));
        f.input.release(keys::f9);
        f.input.release(keys::control);
        f.deliverEvents();
        EXPECT_EQ(presses, 0);

        f.type({ keys::control, keys::f9 });
        EXPECT_EQ(presses, 1);
    }

    TEST(X11KeyRecorderTest, OnAUsKeyboardKeysTypeWhatIsPrintedOnThem)
    {
        KeyRecorderFixture f;
        ASSERT_TRUE(f.start());

        EXPECT_EQ(f.typed({ keys::control, keyA }), "a");
        EXPECT_EQ(f.typed({ keys::super, 10 }), "1");
        EXPECT_EQ(f.typed({ keys::super, keys::shift, 10 }), "!");
        EXPECT_EQ(f.typed({ keys::alt, 49 }), "`");
    }

    TEST(X11KeyRecorderTest, OnAGermanKeyboardDeadKeysTypeTheirAccents)
    {
        const TestLayout layout({ "-layout", "de" });
        ASSERT_TRUE(layout.isSet);
        KeyRecorderFixture f;
        ASSERT_TRUE(f.start());

        EXPECT_EQ(f.typed({ keys::control, 34 }), "ü");
        EXPECT_EQ(f.typed({ keys::control, 20 }), "ß");
        EXPECT_EQ(f.typed({ keys::control, 21 }), "´"); // dead
        EXPECT_EQ(f.typed({ keys::control, keys::shift, 21 }), "`");
        EXPECT_EQ(f.typed({ keys::super, 49 }), "^"); // dead
        EXPECT_EQ(f.typed({ keys::super, 52 }), "y"); // where a US keyboard has the Z
        EXPECT_EQ(f.heard.back().keyCode, 6U);
    }

    TEST(X11KeyRecorderTest, ADeadKeyDoesNotChangeTheNextKey)
    {
        const TestLayout layout({ "-layout", "de" });
        ASSERT_TRUE(layout.isSet);
        KeyRecorderFixture f;
        ASSERT_TRUE(f.start());

        f.type({ keys::control, 49 });

        EXPECT_EQ(f.typed({ keys::control, 26 }), "e");
    }

    TEST(X11KeyRecorderTest, OnAFrenchKeyboardTheTopRowTypesItsSignsAndThePlacesStay)
    {
        const TestLayout layout({ "-layout", "fr" });
        ASSERT_TRUE(layout.isSet);
        KeyRecorderFixture f;
        ASSERT_TRUE(f.start());

        EXPECT_EQ(f.typed({ keys::super, 24 }), "a"); // where a US keyboard has the Q
        EXPECT_EQ(f.heard.back().keyCode, 12U);
        EXPECT_EQ(f.typed({ keys::super, 10 }), "&");
        EXPECT_EQ(f.typed({ keys::super, keys::shift, 10 }), "1");
        EXPECT_EQ(f.typed({ keys::control, 11 }), "é");
        EXPECT_EQ(f.typed({ keys::control, 34 }), "^"); // dead
        EXPECT_EQ(f.typed({ keys::control, keys::shift, 34 }), "¨");
    }

    TEST(X11KeyRecorderTest, OnARussianKeyboardKeysTypeTheirLetters)
    {
        const TestLayout layout({ "-layout", "ru" });
        ASSERT_TRUE(layout.isSet);
        KeyRecorderFixture f;
        ASSERT_TRUE(f.start());

        EXPECT_EQ(f.typed({ keys::control, keyA }), "ф");
        EXPECT_EQ(f.heard.back().keyCode, 0U);
        EXPECT_EQ(f.typed({ keys::super, 49 }), "ё");
    }

    TEST(X11KeyRecorderTest, TheLayoutThatIsInForceCounts)
    {
        const TestLayout layout({ "-layout", "us,ru", "-option", "grp:menu_toggle" });
        ASSERT_TRUE(layout.isSet);
        KeyRecorderFixture f;
        ASSERT_TRUE(f.start());
        EXPECT_EQ(f.typed({ keys::control, keyA }), "a");

        constexpr xcb_keycode_t menuKey = 135;
        f.type({ menuKey });
        EXPECT_EQ(f.typed({ keys::control, keyA }), "ф");
        f.type({ menuKey });

        EXPECT_EQ(f.unnamed, 0);
    }

    TEST(X11KeyRecorderTest, CapsLockMakesNoDifference)
    {
        KeyRecorderFixture f;
        ASSERT_TRUE(f.start());
        f.input.tap(keys::capsLock);

        f.type({ keys::super, keyA });
        f.input.tap(keys::capsLock);
        f.deliverEvents();

        ASSERT_EQ(f.heard.size(), 1U);
        EXPECT_EQ(f.heard[0].modifiers, modifiers::command);
        EXPECT_EQ(f.heard[0].characters, "a");
    }

    TEST(X11KeyRecorderTest, TheKeypadTypesDigitsWhateverNumLockSays)
    {
        KeyRecorderFixture f;
        ASSERT_TRUE(f.start());
        constexpr xcb_keycode_t keypad7 = 79;

        EXPECT_EQ(f.typed({ keys::super, keypad7 }), "7");
        EXPECT_EQ(f.typed({ keys::super, keys::shift, keypad7 }), "7");
        EXPECT_EQ(f.heard.back().keyCode, 89U);
    }

    TEST(X11KeyRecorderTest, AKeyThatNoShortcutCanNameIsToldAsSuch)
    {
        KeyRecorderFixture f;
        ASSERT_TRUE(f.start());
        constexpr xcb_keycode_t mute = 121;

        f.type({ keys::control, mute });

        EXPECT_TRUE(f.heard.empty());
        EXPECT_EQ(f.unnamed, 1);
    }

    TEST(X11KeyRecorderTest, AHeldKeyIsHeardOnce)
    {
        KeyRecorderFixture f;
        int repetitions = 0;
        const auto seen = f.connection.onEvent(XCB_KEY_PRESS, [&](const auto&) { ++repetitions; });
        ASSERT_TRUE(f.start());

        f.input.press(keyA);
        EXPECT_TRUE(waitUntil([&] { return repetitions > 3; }));
        f.input.release(keyA);
        f.type({ keyA });

        EXPECT_EQ(f.heard.size(), 2U);
    }

    TEST(X11KeyRecorderTest, AKeyThatIsHeldFromBeforeIsNotHeard)
    {
        KeyRecorderFixture f;
        int repetitions = 0;
        const auto seen = f.connection.onEvent(XCB_KEY_PRESS, [&](const auto&) { ++repetitions; });
        f.input.press(keyA);
        ASSERT_TRUE(f.start());

        EXPECT_TRUE(waitUntil([&] { return repetitions > 2; }));
        EXPECT_TRUE(f.heard.empty());
        f.input.release(keyA);
        f.type({ keyA });
        EXPECT_EQ(f.heard.size(), 1U);
    }

    TEST(X11KeyRecorderTest, BeepingRingsTheServersBell)
    {
        KeyRecorderFixture f;
        xcb_xkb_select_events(f.otherProgram.get(), XCB_XKB_ID_USE_CORE_KBD,
            XCB_XKB_EVENT_TYPE_BELL_NOTIFY, 0, XCB_XKB_EVENT_TYPE_BELL_NOTIFY, 0, 0, nullptr);
        f.otherProgram.sync();
        const auto* const xkb = xcb_get_extension_data(f.otherProgram.get(), &xcb_xkb_id);

        f.recorder->beep();

        EXPECT_TRUE(waitUntil([&] {
            const X11Event event(xcb_poll_for_event(f.otherProgram.get()));
            return event && event->response_type == xkb->first_event
                && event->pad0 == XCB_XKB_BELL_NOTIFY;
        }));
    }

    TEST(X11KeyRecorderTest, WithoutAServerItCannotBegin)
    {
        const auto display = qgetenv("DISPLAY");
        qputenv("DISPLAY", ":4000");
        QtMainLoop loop;
        X11Connection connection(loop);
        qputenv("DISPLAY", display);
        KeyMap keyMap(connection, loop);
        X11KeyRecorder recorder(connection, keyMap, loop);

        EXPECT_FALSE(recorder.start(1));
        recorder.windowKeyPressed(keyA, 0);
        recorder.beep();
        recorder.stop();
        EXPECT_FALSE(recorder.hasKeyboard());
    }

} // namespace
} // namespace korvane
