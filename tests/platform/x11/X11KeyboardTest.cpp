#include "platform/x11/X11Keyboard.h"

#include "X11Desk.h"
#include "platform/x11/X11RawInput.h"

#include <xcb/xcb.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace korvane {
namespace {

    namespace keys = test::keys;
    using test::ReceivedKey;
    using test::TestLayout;
    using test::TestWindow;
    using test::waitUntil;

    // The bits of a key event's state that name modifiers, without lock keys and layouts.
    constexpr int chordBits = XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1
        | XCB_MOD_MASK_4 | XCB_MOD_MASK_5;

    struct KeyboardFixture : test::X11Desk {
        bool isTerminal = false;
        int primaryTaken = 0;
        X11RawInput rawInput { connection };
        X11Keyboard keyboard { connection, keyMap, rawInput,
            { [this] { return isTerminal; }, [this] { ++primaryTaken; } } };
        TestWindow target { otherProgram };
        std::vector<KeyPress> heard;
        Connection keyDown
            = keyboard.keyDown.connect([this](const KeyPress& press) { heard.push_back(press); });

        /// Listens, and the server knows of it when this returns.
        bool listen()
        {
            const bool isPossible = keyboard.listen();
            deliverEvents();
            return isPossible;
        }
        /// What the target was given of the key; it is waited for.
        std::vector<ReceivedKey> received(xcb_keycode_t key)
        {
            std::vector<ReceivedKey> all;
            waitUntil([&] {
                std::ranges::copy(target.takeKeys(), std::back_inserter(all));
                return std::ranges::any_of(all, [&](const auto& each) { return each.key == key; });
            });
            std::erase_if(all, [&](const auto& each) { return each.key != key; });
            for (auto& each : all)
                each.state &= chordBits;
            return all;
        }
        bool isAnyModifierDown()
        {
            return std::ranges::any_of(
                keyMap.keysSetting(0xFF), [this](xcb_keycode_t key) { return input.isDown(key); });
        }
        bool isCapsLockOn()
        {
            const X11Reply<xcb_query_pointer_reply_t> answer(
                xcb_query_pointer_reply(otherProgram.get(),
                    xcb_query_pointer(otherProgram.get(), otherProgram.root()), nullptr));
            return (answer->mask & XCB_MOD_MASK_LOCK) != 0;
        }
    };

    TEST(X11KeyboardTest, ThePasteChordIsControlV)
    {
        KeyboardFixture f;
        ASSERT_TRUE(f.bringToFront(f.target));

        f.keyboard.typeChord(keycodes::v, modifiers::command);

        EXPECT_EQ(
            f.received(keys::v), (std::vector<ReceivedKey> { { keys::v, XCB_MOD_MASK_CONTROL } }));
        EXPECT_EQ(f.primaryTaken, 0);
    }

    TEST(X11KeyboardTest, HoldingShiftWhileChoosingAClipDoesNotChangeTheChord)
    {
        KeyboardFixture f;
        ASSERT_TRUE(f.bringToFront(f.target));
        f.input.press(keys::shift);

        f.keyboard.typeChord(keycodes::v, modifiers::command);

        EXPECT_EQ(
            f.received(keys::v), (std::vector<ReceivedKey> { { keys::v, XCB_MOD_MASK_CONTROL } }));
    }

    TEST(X11KeyboardTest, NoHeldModifierChangesTheChordAndNoneIsPressedAgain)
    {
        for (const auto held : { keys::control, keys::super, keys::alt, xcb_keycode_t { 105 },
                 xcb_keycode_t { 62 }, xcb_keycode_t { 108 } }) {
            KeyboardFixture f;
            ASSERT_TRUE(f.bringToFront(f.target));
            f.input.press(held);

            f.keyboard.typeChord(keycodes::v, modifiers::command);

            EXPECT_EQ(f.received(keys::v),
                (std::vector<ReceivedKey> { { keys::v, XCB_MOD_MASK_CONTROL } }))
                << int { held };
            EXPECT_FALSE(f.isAnyModifierDown()) << int { held };
        }
    }

    TEST(X11KeyboardTest, CapsLockMakesNoDifferenceAndStaysOn)
    {
        KeyboardFixture f;
        ASSERT_TRUE(f.bringToFront(f.target));
        f.input.tap(keys::capsLock);
        ASSERT_TRUE(f.isCapsLockOn());

        f.keyboard.typeChord(keycodes::v, modifiers::command);

        EXPECT_EQ(
            f.received(keys::v), (std::vector<ReceivedKey> { { keys::v, XCB_MOD_MASK_CONTROL } }));
        EXPECT_TRUE(f.isCapsLockOn());
        f.input.tap(keys::capsLock);
    }

    TEST(X11KeyboardTest, AHeldCapsLockKeyIsNotLetGo)
    {
        KeyboardFixture f;
        ASSERT_TRUE(f.bringToFront(f.target));
        f.input.press(keys::capsLock);

        f.keyboard.typeChord(keycodes::v, modifiers::command);

        EXPECT_EQ(
            f.received(keys::v), (std::vector<ReceivedKey> { { keys::v, XCB_MOD_MASK_CONTROL } }));
        EXPECT_TRUE(f.input.isDown(keys::capsLock));
        f.input.release(keys::capsLock);
        f.input.tap(keys::capsLock);
    }

    TEST(X11KeyboardTest, ATerminalIsGivenShiftInsertWithTheTextInPrimary)
    {
        KeyboardFixture f;
        f.isTerminal = true;
        ASSERT_TRUE(f.bringToFront(f.target));

        f.keyboard.typeChord(keycodes::v, modifiers::command);

        EXPECT_EQ(f.received(keys::insert),
            (std::vector<ReceivedKey> { { keys::insert, XCB_MOD_MASK_SHIFT } }));
        EXPECT_EQ(f.primaryTaken, 1);
    }

    TEST(X11KeyboardTest, OtherChordsToATerminalAreTypedAsTheyAre)
    {
        KeyboardFixture f;
        f.isTerminal = true;
        ASSERT_TRUE(f.bringToFront(f.target));

        f.keyboard.typeChord(8, modifiers::command);

        EXPECT_EQ(f.received(54), (std::vector<ReceivedKey> { { 54, XCB_MOD_MASK_CONTROL } }));
        EXPECT_EQ(f.primaryTaken, 0);
    }

    TEST(X11KeyboardTest, ControlOfTheOtherKeyboardIsSuperHere)
    {
        KeyboardFixture f;
        ASSERT_TRUE(f.bringToFront(f.target));

        f.keyboard.typeChord(101, modifiers::control | modifiers::shift | modifiers::option);

        EXPECT_EQ(f.received(keys::f9),
            (std::vector<ReceivedKey> {
                { keys::f9, XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_1 } }));
    }

    TEST(X11KeyboardTest, ThePasteChordUsesTheKeyThatTypesTheLetter)
    {
        const TestLayout layout({ "-layout", "us", "-variant", "dvorak" });
        ASSERT_TRUE(layout.isSet);
        KeyboardFixture f;
        ASSERT_TRUE(f.bringToFront(f.target));

        f.keyboard.typeChord(keycodes::v, modifiers::command);

        EXPECT_EQ(f.received(keys::dot),
            (std::vector<ReceivedKey> { { keys::dot, XCB_MOD_MASK_CONTROL } }));
    }

    TEST(X11KeyboardTest, ALayoutWithoutTheLetterUsesTheKeyOfAnotherLayout)
    {
        const TestLayout layout({ "-layout", "us,ru", "-option", "grp:menu_toggle" });
        ASSERT_TRUE(layout.isSet);
        KeyboardFixture f;
        ASSERT_TRUE(f.bringToFront(f.target));
        constexpr xcb_keycode_t menuKey = 135;
        f.input.tap(menuKey);

        f.keyboard.typeChord(keycodes::v, modifiers::command);

        EXPECT_EQ(
            f.received(keys::v), (std::vector<ReceivedKey> { { keys::v, XCB_MOD_MASK_CONTROL } }));
        f.input.tap(menuKey);
    }

    TEST(X11KeyboardTest, AKeyThatDoesNotExistIsNotTyped)
    {
        KeyboardFixture f;
        ASSERT_TRUE(f.bringToFront(f.target));

        f.keyboard.typeChord(127, modifiers::command);
        f.keyboard.typeChord(101, 0);

        EXPECT_EQ(f.received(keys::f9), (std::vector<ReceivedKey> { { keys::f9, 0 } }));
    }

    TEST(X11KeyboardTest, EveryKeyPressOnTheDesktopIsHeard)
    {
        KeyboardFixture f;
        ASSERT_TRUE(f.bringToFront(f.target));
        ASSERT_TRUE(f.listen());

        f.input.tap(keys::f9);
        f.deliverEvents();

        ASSERT_EQ(f.heard.size(), 1U);
        EXPECT_EQ(f.heard[0].keyCode, 101U);
        EXPECT_EQ(f.heard[0].modifiers, 0U);
    }

    TEST(X11KeyboardTest, NothingIsHeardBeforeListening)
    {
        KeyboardFixture f;

        f.input.tap(keys::f9);
        f.deliverEvents();

        EXPECT_TRUE(f.heard.empty());
    }

    TEST(X11KeyboardTest, ControlVIsHeardAsCommandV)
    {
        KeyboardFixture f;
        ASSERT_TRUE(f.listen());

        f.input.chord({ keys::control, keys::v });
        f.deliverEvents();

        ASSERT_EQ(f.heard.size(), 1U);
        EXPECT_EQ(f.heard[0].keyCode, keycodes::v);
        EXPECT_EQ(f.heard[0].modifiers, modifiers::command);
    }

    TEST(X11KeyboardTest, APasteIntoATerminalIsHeardAsAPaste)
    {
        KeyboardFixture f;
        f.isTerminal = true;
        ASSERT_TRUE(f.bringToFront(f.target));
        ASSERT_TRUE(f.listen());

        f.keyboard.typeChord(keycodes::v, modifiers::command);
        f.deliverEvents();

        const auto isPaste = [](const KeyPress& press) {
            return press.keyCode == keycodes::v && press.modifiers == modifiers::command;
        };
        EXPECT_EQ(std::ranges::count_if(f.heard, isPaste), 1);
        f.heard.clear();

        f.isTerminal = false;
        f.input.chord({ keys::shift, keys::insert });
        f.deliverEvents();
        EXPECT_EQ(std::ranges::count_if(f.heard, isPaste), 0);
    }

    TEST(X11KeyboardTest, ControlCommandVIsHeardWithBoth)
    {
        KeyboardFixture f;
        ASSERT_TRUE(f.listen());

        f.input.chord({ keys::control, keys::super, keys::v });
        f.deliverEvents();

        ASSERT_EQ(f.heard.size(), 1U);
        EXPECT_EQ(f.heard[0].modifiers, modifiers::command | modifiers::control);
    }

    TEST(X11KeyboardTest, ShiftAndOptionAreHeardBesideCommand)
    {
        KeyboardFixture f;
        ASSERT_TRUE(f.listen());

        f.input.chord({ keys::control, keys::shift, keys::alt, keys::v });
        f.deliverEvents();

        ASSERT_EQ(f.heard.size(), 1U);
        EXPECT_EQ(f.heard[0].modifiers, modifiers::command | modifiers::shift | modifiers::option);
    }

    TEST(X11KeyboardTest, AModifierThatWasHeldBeforeListeningIsKnown)
    {
        KeyboardFixture f;
        f.input.press(keys::control);
        ASSERT_TRUE(f.listen());

        f.input.tap(keys::v);
        f.deliverEvents();

        ASSERT_EQ(f.heard.size(), 1U);
        EXPECT_EQ(f.heard[0].modifiers, modifiers::command);
    }

    TEST(X11KeyboardTest, AChordThatAProgramTypesIsHeardWithItsModifiers)
    {
        KeyboardFixture f;
        ASSERT_TRUE(f.bringToFront(f.target));
        ASSERT_TRUE(f.listen());

        // All of it has happened in the server before the first event of it is read.
        f.keyboard.typeChord(keycodes::v, modifiers::command);
        f.deliverEvents();

        ASSERT_EQ(f.heard.size(), 1U);
        EXPECT_EQ(f.heard[0].keyCode, keycodes::v);
        EXPECT_EQ(f.heard[0].modifiers, modifiers::command);
    }

    TEST(X11KeyboardTest, KeysAreHeardWhileAnotherProgramHoldsTheKeyboard)
    {
        KeyboardFixture f;
        ASSERT_TRUE(f.listen());
        ASSERT_TRUE(f.holdKeyboard());

        f.input.chord({ keys::control, keys::v });
        f.deliverEvents();

        EXPECT_EQ(f.heard.size(), 1U);
    }

    TEST(X11KeyboardTest, AHeldKeyIsHeardOnce)
    {
        KeyboardFixture f;
        ASSERT_TRUE(f.bringToFront(f.target));
        ASSERT_TRUE(f.listen());
        f.target.takeKeys();

        f.input.press(keys::f9);
        std::size_t repetitions = 0;
        EXPECT_TRUE(waitUntil([&] { return (repetitions += f.target.takeKeys().size()) > 3; }));
        f.input.release(keys::f9);
        f.deliverEvents();

        EXPECT_EQ(f.heard.size(), 1U);
    }

    TEST(X11KeyboardTest, KeysWithoutAVirtualCodeAreNotTold)
    {
        KeyboardFixture f;
        ASSERT_TRUE(f.listen());

        f.input.tap(keys::control);
        f.deliverEvents();

        EXPECT_TRUE(f.heard.empty());
    }

    TEST(X11KeyboardTest, TheKeyThatTypesTheLetterIsHeardAsTheVKey)
    {
        const TestLayout layout({ "-layout", "us", "-variant", "dvorak" });
        ASSERT_TRUE(layout.isSet);
        KeyboardFixture f;
        ASSERT_TRUE(f.listen());

        f.input.tap(keys::dot);
        f.input.tap(keys::v);
        f.deliverEvents();

        ASSERT_EQ(f.heard.size(), 2U);
        EXPECT_EQ(f.heard[0].keyCode, keycodes::v);
        EXPECT_EQ(f.heard[1].keyCode, 47U);
    }

    TEST(X11KeyboardTest, WithoutTheLetterInTheLayoutThePositionIsTheVKey)
    {
        const TestLayout layout({ "-layout", "ru" });
        ASSERT_TRUE(layout.isSet);
        KeyboardFixture f;
        ASSERT_TRUE(f.listen());

        f.input.tap(keys::v);
        f.deliverEvents();

        ASSERT_EQ(f.heard.size(), 1U);
        EXPECT_EQ(f.heard[0].keyCode, keycodes::v);
    }

    TEST(X11KeyboardTest, WithoutAServerListeningIsNotPossible)
    {
        const auto display = qgetenv("DISPLAY");
        qputenv("DISPLAY", ":4000");
        QtMainLoop loop;
        X11Connection connection(loop);
        qputenv("DISPLAY", display);
        KeyMap keyMap(connection, loop);
        X11RawInput rawInput(connection);
        X11Keyboard keyboard(connection, keyMap, rawInput, { [] { return false; }, [] {} });

        EXPECT_FALSE(keyboard.listen());
        keyboard.typeChord(keycodes::v, modifiers::command); // and this does nothing
    }

} // namespace
} // namespace korvane
