#include "platform/wayland/WaylandKeyboard.h"

#include "platform/qt/QtMainLoop.h"
#include "platform/wayland/KeyTarget.h"
#include "platform/wayland/KeyTyping.h"
#include "support/EventLoop.h"

#include <gtest/gtest.h>

#include <linux/input-event-codes.h>
#include <xkbcommon/xkbcommon-keysyms.h>

namespace korvane {
namespace {

    using test::KeyTarget;
    using test::UsersKeyboard;
    using test::waitUntil;
    using test::WaylandClient;
    using Typed = std::vector<std::string>;

    /// A window of another program that has the keyboard, and the keyboard that we type on.
    struct TypingDesk {
        explicit TypingDesk(const char* layout = "us")
            : user(layout)
        {
        }

        /// The window has the keyboard, and what the user's keys mean is known.
        bool isReady()
        {
            return waitUntil([this] { return target.hasKeyboard() && seat.keymap() != nullptr; });
        }
        Typed typedUntil(std::size_t count)
        {
            waitUntil([&] { return target.typed().size() >= count; });
            client.sync();
            return target.typed();
        }

        QtMainLoop loop;
        WaylandConnection connection { loop };
        UsersKeyboard user;
        WaylandClient client;
        // Our panel would be on the toolkit's connection; here it is the target's, which has the keyboard.
        SeatKeyboard seat { client.display() };
        KeyTarget target { client, "target" };
        bool isTerminal = false;
        int primaryTaken = 0;
        WaylandKeyboard keyboard { connection, seat,
            { [this] { return isTerminal; }, [this] { ++primaryTaken; } } };
    };

    TEST(WaylandKeyboardTest, APasteIsTypedAsControlV)
    {
        TypingDesk desk;
        ASSERT_TRUE(desk.keyboard.canType());
        ASSERT_TRUE(desk.isReady());

        desk.keyboard.typeChord(keycodes::v, modifiers::command);

        EXPECT_EQ(desk.typedUntil(1), Typed { "Control+v" });
    }

    TEST(WaylandKeyboardTest, EveryPasteArrives)
    {
        TypingDesk desk;
        ASSERT_TRUE(desk.isReady());

        for (int paste = 0; paste < 20; ++paste)
            desk.keyboard.typeChord(keycodes::v, modifiers::command);

        EXPECT_EQ(desk.typedUntil(20), Typed(20, "Control+v"));
    }

    TEST(WaylandKeyboardTest, APasteIsTheLetterWhereverTheUsersLayoutHasIt)
    {
        TypingDesk desk("us(dvorak)");
        if (!desk.user.choosesLayout())
            GTEST_SKIP() << "here no keyboard brings a layout of its own";
        ASSERT_TRUE(desk.isReady());

        desk.keyboard.typeChord(keycodes::v, modifiers::command);

        EXPECT_EQ(desk.typedUntil(1), Typed { "Control+v" });
    }

    TEST(WaylandKeyboardTest, WhatTheUserHoldsDoesNotChangeTheChord)
    {
        TypingDesk desk;
        ASSERT_TRUE(desk.isReady());
        desk.user.press(KEY_LEFTSHIFT);
        desk.user.press(KEY_LEFTALT);
        ASSERT_TRUE(waitUntil([&] {
            desk.client.listen();
            return desk.seat.heldModifiers() != 0;
        }));
        desk.client.sync();

        desk.keyboard.typeChord(keycodes::v, modifiers::command);

        EXPECT_EQ(desk.typedUntil(1), Typed { "Control+v" });
    }

    TEST(WaylandKeyboardTest, ATerminalIsPastedIntoByShiftInsertFromThePrimarySelection)
    {
        TypingDesk desk;
        ASSERT_TRUE(desk.isReady());
        desk.isTerminal = true;

        desk.keyboard.typeChord(keycodes::v, modifiers::command);

        EXPECT_EQ(desk.typedUntil(1), Typed { "Shift+Insert" });
        EXPECT_EQ(desk.primaryTaken, 1);
    }

    TEST(WaylandKeyboardTest, AnyOtherChordIsTypedByItsPlaceWithExactlyItsModifiers)
    {
        TypingDesk desk;
        ASSERT_TRUE(desk.isReady());
        desk.isTerminal = true;

        desk.keyboard.typeChord(0, modifiers::control | modifiers::shift);
        desk.keyboard.typeChord(keycodes::tab, 0);
        desk.keyboard.typeChord(keycodes::v, modifiers::command | modifiers::option);

        EXPECT_EQ(desk.typedUntil(3), (Typed { "Shift+Mod4+a", "Tab", "Control+Mod1+v" }));
        EXPECT_EQ(desk.primaryTaken, 0);
    }

    TEST(WaylandKeyboardTest, AKeyThatNoKeyboardHasIsNotTyped)
    {
        TypingDesk desk;
        ASSERT_TRUE(desk.isReady());

        desk.keyboard.typeChord(9999, modifiers::command);
        desk.keyboard.typeChord(keycodes::space, 0);

        EXPECT_EQ(desk.typedUntil(1), Typed { "space" });
    }

    TEST(WaylandKeyboardTest, NothingIsHeardOfWhatTheUserTypes)
    {
        TypingDesk desk;

        EXPECT_FALSE(desk.keyboard.listen());
    }

    TEST(KeyTypingTest, ALetterIsLookedForInTheLayoutInForceFirst)
    {
        const XkbContext context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
        xkb_rule_names names {};
        names.layout = "us,us,ru";
        names.variant = ",dvorak,";
        const XkbKeymap keymap(
            xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));

        const auto key = [&](xkb_layout_index_t layout) {
            const auto keys = chordTyping(keymap.get(), layout, XKB_KEY_v, modifiers::control);
            return keys ? keys->key - kernelKeyOffset : 0;
        };

        EXPECT_EQ(key(0), static_cast<xkb_keycode_t>(KEY_V));
        EXPECT_EQ(key(1), static_cast<xkb_keycode_t>(KEY_DOT));
        EXPECT_EQ(key(2), static_cast<xkb_keycode_t>(KEY_V)); // which only the others have
    }

} // namespace
} // namespace korvane
