#include "platform/x11/KeySymbols.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <gtest/gtest.h>

namespace korvane {
namespace {

    TEST(KeySymbolsTest, ASymbolOfEveryScriptHasItsText)
    {
        EXPECT_EQ(textOf(XKB_KEY_a), "a");
        EXPECT_EQ(textOf(XKB_KEY_udiaeresis), "ü");
        EXPECT_EQ(textOf(XKB_KEY_Cyrillic_ef), "ф");
        EXPECT_EQ(textOf(XKB_KEY_KP_7), "7");
    }

    TEST(KeySymbolsTest, ADeadKeyIsShownByItsAccent)
    {
        EXPECT_EQ(textOf(XKB_KEY_dead_circumflex), "^");
        EXPECT_EQ(textOf(XKB_KEY_dead_diaeresis), "¨");
    }

    TEST(KeySymbolsTest, WhatCannotBeSeenIsNoText)
    {
        for (const auto symbol : { XKB_KEY_NoSymbol, XKB_KEY_Escape, XKB_KEY_Tab, XKB_KEY_Delete,
                 XKB_KEY_Return, XKB_KEY_Home, XKB_KEY_F5, XKB_KEY_Control_L })
            EXPECT_EQ(textOf(static_cast<std::uint32_t>(symbol)), "") << symbol;
    }

    TEST(KeySymbolsTest, ModifiersAndLocksAreKnown)
    {
        for (const auto symbol : { XKB_KEY_Shift_L, XKB_KEY_Super_R, XKB_KEY_Hyper_R,
                 XKB_KEY_ISO_Level3_Shift, XKB_KEY_ISO_Next_Group, XKB_KEY_Num_Lock })
            EXPECT_TRUE(isModifierSymbol(static_cast<std::uint32_t>(symbol))) << symbol;
        for (const auto symbol : { XKB_KEY_a, XKB_KEY_ISO_Left_Tab, XKB_KEY_Escape, XKB_KEY_Menu })
            EXPECT_FALSE(isModifierSymbol(static_cast<std::uint32_t>(symbol))) << symbol;
    }

} // namespace
} // namespace korvane
