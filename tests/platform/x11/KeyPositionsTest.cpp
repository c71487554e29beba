#include "platform/x11/KeyPositions.h"

#include <gtest/gtest.h>

#include <set>

namespace korvane {
namespace {

    TEST(KeyPositionsTest, EachPositionHasACodeAndANameOfItsOwn)
    {
        std::set<KeyCode> codes;
        std::set<std::string_view> names;
        for (const auto& position : keyPositions()) {
            codes.insert(position.keyCode);
            names.insert(position.xkbName);
        }

        EXPECT_EQ(codes.size(), keyPositions().size());
        EXPECT_EQ(names.size(), keyPositions().size());
    }

    TEST(KeyPositionsTest, EachNamedKeyOfTheProgramHasAPosition)
    {
        EXPECT_EQ(xkbNameOf(keycodes::space), "SPCE");
        EXPECT_EQ(xkbNameOf(keycodes::v), "AB04");
        EXPECT_EQ(xkbNameOf(keycodes::returnKey), "RTRN");
        EXPECT_EQ(xkbNameOf(keycodes::tab), "TAB");
        EXPECT_EQ(xkbNameOf(keycodes::backspace), "BKSP");
        EXPECT_EQ(xkbNameOf(keycodes::escape), "ESC");
        EXPECT_EQ(xkbNameOf(keycodes::downArrow), "DOWN");
        EXPECT_EQ(xkbNameOf(keycodes::upArrow), "UP");
    }

    TEST(KeyPositionsTest, NumbersWithoutAKeyHaveNoName)
    {
        EXPECT_EQ(xkbNameOf(52), std::nullopt);
        EXPECT_EQ(xkbNameOf(127), std::nullopt);
        EXPECT_EQ(xkbNameOf(0xFFFFFFFF), std::nullopt);
    }

} // namespace
} // namespace korvane
