#include "hotkey/KeyCodes.h"

#include "hotkey/Shortcut.h"

#include <gtest/gtest.h>

#include <array>

namespace korvane {
namespace {

    TEST(KeyCodesTest, SymbolsStandInTheOrderControlOptionShiftCommand)
    {
        EXPECT_EQ(modifierSymbols(modifiers::all), "⌃⌥⇧⌘");
        EXPECT_EQ(modifierSymbols(4096 + 256 + 512), "⌃⇧⌘");
    }

    TEST(KeyCodesTest, AnEmptyMaskHasNoSymbols)
    {
        EXPECT_EQ(modifierSymbols(0), "");
        EXPECT_EQ(modifierSymbols(1024), "");
    }

    TEST(KeyCodesTest, FlagsBecomeTheMasksBits)
    {
        EXPECT_EQ(carbonModifiers(1U << 20U), 256U);
        EXPECT_EQ(carbonModifiers(1U << 19U), 2048U);
        EXPECT_EQ(carbonModifiers(1U << 18U), 4096U);
        EXPECT_EQ(carbonModifiers(1U << 17U), 512U);
    }

    TEST(KeyCodesTest, CapsLockAndOtherFlagsAreDropped)
    {
        constexpr std::uint64_t capsLock = 1U << 16U;
        constexpr std::uint64_t function = 1U << 23U;

        EXPECT_EQ(carbonModifiers(capsLock | eventflags::command), 256U);
        EXPECT_EQ(carbonModifiers(capsLock | function), 0U);
    }

    TEST(KeyCodesTest, SpecialKeysHaveTheirLabels)
    {
        struct Row {
            KeyCode keyCode;
            std::string_view label;
        };
        constexpr std::array rows { Row { 36, "↩" }, Row { 76, "↩" }, Row { 48, "⇥" },
            Row { 49, "Space" }, Row { 51, "⌫" }, Row { 53, "⎋" }, Row { 117, "⌦" },
            Row { 123, "←" }, Row { 124, "→" }, Row { 125, "↓" }, Row { 126, "↑" },
            Row { 115, "Home" }, Row { 119, "End" }, Row { 116, "PgUp" }, Row { 121, "PgDn" } };

        for (const auto& row : rows)
            EXPECT_EQ(keyLabel(row.keyCode), row.label) << row.keyCode;
    }

    TEST(KeyCodesTest, FunctionKeysAreLabelledInTheirPairing)
    {
        constexpr std::array<KeyCode, 12> codes { 122, 120, 99, 118, 96, 97, 98, 100, 101, 109, 103,
            111 };

        for (std::size_t i = 0; i < codes.size(); ++i)
            EXPECT_EQ(keyLabel(codes[i]), "F" + std::to_string(i + 1));
    }

    TEST(KeyCodesTest, AnyOtherKeyHasNoFixedLabel)
    {
        EXPECT_EQ(keyLabel(0), std::nullopt);
        EXPECT_EQ(keyLabel(keycodes::v), std::nullopt);
        EXPECT_EQ(keyLabel(4'294'967'295U), std::nullopt);
    }

    TEST(ShortcutTest, TheDefaultIsShownAsControlSpace)
    {
        EXPECT_EQ(displayText(Shortcut {}), "⌃Space");
    }

    TEST(ShortcutTest, SymbolsComeBeforeTheLabel)
    {
        EXPECT_EQ(displayText({ 0, modifiers::option | modifiers::command, "A" }), "⌥⌘A");
    }

} // namespace
} // namespace korvane
