#include "platform/x11/KeyMap.h"

#include "X11Desk.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace korvane {
namespace {

    using test::TestLayout;
    using test::waitUntil;
    using test::X11Desk;

    // The key codes that Linux drivers give to the positions: the kernel's number of the key and 8.
    constexpr auto evdevKeys = std::to_array<std::pair<KeyCode, xcb_keycode_t>>({ { 0, 38 },
        { 1, 39 }, { 2, 40 }, { 3, 41 }, { 4, 43 }, { 5, 42 }, { 6, 52 }, { 7, 53 }, { 8, 54 },
        { 9, 55 }, { 10, 94 }, { 11, 56 }, { 12, 24 }, { 13, 25 }, { 14, 26 }, { 15, 27 },
        { 16, 29 }, { 17, 28 }, { 18, 10 }, { 19, 11 }, { 20, 12 }, { 21, 13 }, { 22, 15 },
        { 23, 14 }, { 24, 21 }, { 25, 18 }, { 26, 16 }, { 27, 20 }, { 28, 17 }, { 29, 19 },
        { 30, 35 }, { 31, 32 }, { 32, 30 }, { 33, 34 }, { 34, 31 }, { 35, 33 }, { 36, 36 },
        { 37, 46 }, { 38, 44 }, { 39, 48 }, { 40, 45 }, { 41, 47 }, { 42, 51 }, { 43, 59 },
        { 44, 61 }, { 45, 57 }, { 46, 58 }, { 47, 60 }, { 48, 23 }, { 49, 65 }, { 50, 49 },
        { 51, 22 }, { 53, 9 }, { 65, 91 }, { 67, 63 }, { 69, 86 }, { 71, 77 }, { 75, 106 },
        { 76, 104 }, { 78, 82 }, { 81, 125 }, { 82, 90 }, { 83, 87 }, { 84, 88 }, { 85, 89 },
        { 86, 83 }, { 87, 84 }, { 88, 85 }, { 89, 79 }, { 91, 80 }, { 92, 81 }, { 96, 71 },
        { 97, 72 }, { 98, 73 }, { 99, 69 }, { 100, 74 }, { 101, 75 }, { 103, 95 }, { 105, 191 },
        { 106, 194 }, { 107, 192 }, { 109, 76 }, { 111, 96 }, { 113, 193 }, { 114, 118 },
        { 115, 110 }, { 116, 112 }, { 117, 119 }, { 118, 70 }, { 119, 115 }, { 120, 68 },
        { 121, 117 }, { 122, 67 }, { 123, 113 }, { 124, 114 }, { 125, 116 }, { 126, 111 } });

    void expectAllPositions(KeyMap& keyMap)
    {
        for (const auto& [position, key] : evdevKeys) {
            EXPECT_EQ(keyMap.keyAt(position), key) << position;
            EXPECT_EQ(keyMap.positionOf(key), position) << int { key };
        }
    }

    TEST(KeyMapTest, EveryPositionIsFoundOnAUsKeyboard)
    {
        X11Desk f;

        expectAllPositions(f.keyMap);
    }

    TEST(KeyMapTest, EveryPositionIsTheSameOnAFrenchKeyboard)
    {
        const TestLayout layout({ "-layout", "fr" });
        ASSERT_TRUE(layout.isSet);
        X11Desk f;

        expectAllPositions(f.keyMap);
    }

    TEST(KeyMapTest, EveryPositionIsTheSameWithTwoLayouts)
    {
        const TestLayout layout({ "-layout", "us,ru" });
        ASSERT_TRUE(layout.isSet);
        X11Desk f;

        expectAllPositions(f.keyMap);
    }

    TEST(KeyMapTest, UnknownPositionsHaveNoKey)
    {
        X11Desk f;

        EXPECT_EQ(f.keyMap.keyAt(127), std::nullopt);
        EXPECT_EQ(f.keyMap.positionOf(test::keys::control), std::nullopt);
    }

    TEST(KeyMapTest, AChangeOfLayoutIsToldAndFollowed)
    {
        X11Desk f;
        int changes = 0;
        const auto connection = f.keyMap.changed.connect([&] { ++changes; });
        EXPECT_EQ(f.keyMap.keyTyping(XKB_KEY_v, 0), test::keys::v);

        const TestLayout layout({ "-layout", "us", "-variant", "dvorak" });

        EXPECT_TRUE(waitUntil([&] { return changes > 0; }));
        EXPECT_TRUE(waitUntil([&] { return f.keyMap.keyTyping(XKB_KEY_v, 0) == test::keys::dot; }));
    }

    TEST(KeyMapTest, ALetterIsFoundInTheLayoutThatIsInForceFirst)
    {
        const TestLayout layout({ "-layout", "us,us", "-variant", ",dvorak" });
        ASSERT_TRUE(layout.isSet);
        X11Desk f;

        EXPECT_EQ(f.keyMap.keyTyping(XKB_KEY_v, 0), test::keys::v);
        EXPECT_EQ(f.keyMap.keyTyping(XKB_KEY_v, 1), test::keys::dot);
    }

    TEST(KeyMapTest, ALetterThatTheLayoutInForceLacksIsFoundInAnother)
    {
        const TestLayout layout({ "-layout", "us,ru" });
        ASSERT_TRUE(layout.isSet);
        X11Desk f;

        EXPECT_EQ(f.keyMap.keyTyping(XKB_KEY_v, 1), test::keys::v);
        EXPECT_FALSE(f.keyMap.types(test::keys::v, XKB_KEY_v, 1));
    }

    TEST(KeyMapTest, ASymbolThatNoKeyTypesIsNotFound)
    {
        X11Desk f;

        EXPECT_EQ(f.keyMap.keyTyping(XKB_KEY_Cyrillic_em, 0), std::nullopt);
    }

    TEST(KeyMapTest, ModifiersHaveTheirBits)
    {
        X11Desk f;

        EXPECT_EQ(f.keyMap.stateBits(modifiers::control), XCB_MOD_MASK_CONTROL);
        EXPECT_EQ(f.keyMap.stateBits(modifiers::shift), XCB_MOD_MASK_SHIFT);
        EXPECT_EQ(f.keyMap.stateBits(modifiers::option), XCB_MOD_MASK_1);
        EXPECT_EQ(f.keyMap.stateBits(modifiers::command), XCB_MOD_MASK_4);
        EXPECT_EQ(f.keyMap.stateBits(modifiers::all),
            XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_1 | XCB_MOD_MASK_4);
        EXPECT_EQ(f.keyMap.numLockBit(), XCB_MOD_MASK_2);
    }

    TEST(KeyMapTest, AltIsFoundWhereTheUserHasPutIt)
    {
        const TestLayout layout({ "-layout", "us", "-option", "altwin:swap_lalt_lwin" });
        ASSERT_TRUE(layout.isSet);
        X11Desk f;

        // The keys have changed places, and the bits with them.
        const auto altKeys = f.keyMap.keysSetting(f.keyMap.stateBits(modifiers::option));
        EXPECT_NE(std::ranges::find(altKeys, test::keys::super), altKeys.end());
        EXPECT_EQ(std::ranges::find(altKeys, test::keys::alt), altKeys.end());
    }

    TEST(KeyMapTest, WithoutAServerNothingIsFound)
    {
        const auto display = qgetenv("DISPLAY");
        qputenv("DISPLAY", ":4000");
        QtMainLoop loop;
        X11Connection connection(loop);
        qputenv("DISPLAY", display);
        KeyMap keyMap(connection, loop);

        EXPECT_EQ(keyMap.keyAt(keycodes::space), std::nullopt);
        EXPECT_EQ(keyMap.positionOf(test::keys::space), std::nullopt);
        EXPECT_EQ(keyMap.keyTyping(XKB_KEY_v, 0), std::nullopt);
        EXPECT_EQ(keyMap.numLockBit(), 0);
    }

} // namespace
} // namespace korvane
