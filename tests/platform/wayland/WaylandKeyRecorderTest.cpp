#include "platform/wayland/WaylandKeyRecorder.h"

#include "platform/wayland/KeyTarget.h"
#include "support/EventLoop.h"

#include <gtest/gtest.h>

#include <linux/input-event-codes.h>

#include <string>
#include <vector>

namespace korvane {
namespace {

    using test::KeyTarget;
    using test::UsersKeyboard;
    using test::waitUntil;
    using test::WaylandClient;

    constexpr KeyCode letterA = 0;
    constexpr KeyCode letterY = 16;

    /// A window that has the keyboard, and what the recorder makes of the keys that the window gets.
    struct RecorderDesk {
        explicit RecorderDesk(const char* layout = "us")
            : user(layout)
        {
        }

        bool isReady()
        {
            return waitUntil([this] { return target.hasKeyboard() && seat.keymap() != nullptr; });
        }
        std::uint32_t held(const char* modifier) const
        {
            return 1U << xkb_keymap_mod_get_index(seat.keymap(), modifier);
        }
        void press(unsigned key, std::uint32_t state = 0)
        {
            recorder.windowKeyPressed(key + kernelKeyOffset, state);
        }

        UsersKeyboard user;
        WaylandClient client;
        SeatKeyboard seat { client.display() };
        KeyTarget target { client, "target" };
        WaylandKeyRecorder recorder { seat };
        std::vector<KeyPress> told;
        int unnamed = 0;
        Connection keys
            = recorder.keyDown.connect([this](const KeyPress& key) { told.push_back(key); });
        Connection others = recorder.unnamedKeyDown.connect([this] { ++unnamed; });
    };

    TEST(WaylandKeyRecorderTest, AKeyOfTheWindowIsToldByItsPlaceItsModifiersAndItsCharacter)
    {
        RecorderDesk desk;
        ASSERT_TRUE(desk.isReady());
        EXPECT_FALSE(desk.recorder.start(1)); // the keyboard itself is nobody's to take

        desk.press(KEY_A, desk.held(XKB_MOD_NAME_CTRL) | desk.held(XKB_MOD_NAME_SHIFT));
        desk.press(KEY_SPACE, desk.held(XKB_MOD_NAME_LOGO) | desk.held(XKB_MOD_NAME_ALT));

        ASSERT_EQ(desk.told.size(), 2U);
        EXPECT_EQ(desk.told.at(0).keyCode, letterA);
        EXPECT_EQ(desk.told.at(0).modifiers, modifiers::control | modifiers::shift);
        EXPECT_EQ(desk.told.at(0).characters, "A");
        EXPECT_EQ(desk.told.at(1).keyCode, keycodes::space);
        EXPECT_EQ(desk.told.at(1).modifiers, modifiers::command | modifiers::option);
    }

    TEST(WaylandKeyRecorderTest, AModifierAloneIsNotToldAndAKeyThatNoShortcutNamesIsUnnamed)
    {
        RecorderDesk desk;
        ASSERT_TRUE(desk.isReady());
        desk.recorder.start(1);

        desk.press(KEY_LEFTCTRL);
        desk.press(KEY_RIGHTSHIFT);
        EXPECT_EQ(desk.unnamed, 0);
        desk.press(KEY_COFFEE);

        EXPECT_TRUE(desk.told.empty());
        EXPECT_EQ(desk.unnamed, 1);
    }

    TEST(WaylandKeyRecorderTest, NothingIsToldBeforeItHasBegunAndAfterItsEnd)
    {
        RecorderDesk desk;
        ASSERT_TRUE(desk.isReady());

        desk.press(KEY_A);
        desk.recorder.start(1);
        desk.recorder.stop();
        desk.press(KEY_A);

        EXPECT_TRUE(desk.told.empty());
    }

    TEST(WaylandKeyRecorderTest, TheCharacterIsThatOfTheUsersLayout)
    {
        RecorderDesk desk("de");
        if (!desk.user.choosesLayout())
            GTEST_SKIP() << "here no keyboard brings a layout of its own";
        ASSERT_TRUE(desk.isReady());
        desk.recorder.start(1);

        desk.press(KEY_Y);

        ASSERT_EQ(desk.told.size(), 1U);
        EXPECT_EQ(desk.told.front().keyCode, letterY);
        EXPECT_EQ(desk.told.front().characters, "z");
    }

} // namespace
} // namespace korvane
