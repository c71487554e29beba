#include "panel/PanelKeys.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using namespace panelcommands;

    constexpr PanelKeyFacts directPaste {
        .isPreviewVisible = false, .isTabCyclingEnabled = true, .isDirectPasteEnabled = true
    };

    template <typename Command>
    const Command* as(const PanelCommand& command)
    {
        return std::get_if<Command>(&command);
    }
    template <typename Command>
    bool is(const PanelCommand& command)
    {
        return std::holds_alternative<Command>(command);
    }
    PanelCommand key(KeyCode keyCode, ModifierMask mask = 0, const PanelKeyFacts& facts = {})
    {
        return panelCommand({ keyCode, mask, "" }, facts);
    }
    PanelCommand character(
        const std::string& characters, ModifierMask mask, const PanelKeyFacts& facts = {})
    {
        return panelCommand({ 0, mask, characters }, facts);
    }

    TEST(PanelKeysTest, ReturnActivatesTheSelectedClipWithAnyModifiers)
    {
        EXPECT_TRUE(is<ActivateSelected>(key(36)));
        EXPECT_TRUE(is<ActivateSelected>(key(36, modifiers::all)));
    }

    TEST(PanelKeysTest, TheNumberPadsEnterPasses)
    {
        EXPECT_TRUE(is<Pass>(key(76)));
    }

    TEST(PanelKeysTest, TabCyclesForwardAndShiftTabBackward)
    {
        const auto forward = key(48);
        const auto backward = key(48, modifiers::shift);

        ASSERT_TRUE(is<CycleTab>(forward) && is<CycleTab>(backward));
        EXPECT_EQ(as<CycleTab>(forward)->steps, 1);
        EXPECT_EQ(as<CycleTab>(backward)->steps, -1);
    }

    TEST(PanelKeysTest, TabPassesWhenCyclingIsOff)
    {
        EXPECT_TRUE(is<Pass>(key(48, 0, { .isTabCyclingEnabled = false })));
        EXPECT_TRUE(is<Pass>(key(48, modifiers::shift, { .isTabCyclingEnabled = false })));
    }

    TEST(PanelKeysTest, SpaceShowsThePreviewAndHidesAVisibleOne)
    {
        EXPECT_TRUE(is<ShowPreview>(key(49)));
        EXPECT_TRUE(is<HidePreview>(key(49, 0, { .isPreviewVisible = true })));
    }

    TEST(PanelKeysTest, DeleteDeletesWithCommandAlone)
    {
        EXPECT_TRUE(is<DeleteSelected>(key(51, modifiers::command)));
        EXPECT_TRUE(is<DeleteSelected>(key(51, modifiers::command | modifiers::shift)));
        EXPECT_TRUE(is<Pass>(key(51)));
        EXPECT_TRUE(is<Pass>(key(51, modifiers::shift)));
    }

    TEST(PanelKeysTest, EscapeIsThePanels)
    {
        EXPECT_TRUE(is<panelcommands::Escape>(key(53)));
    }

    TEST(PanelKeysTest, ArrowsMoveTheSelection)
    {
        const auto down = key(125);
        const auto up = key(126);

        ASSERT_TRUE(is<MoveSelection>(down) && is<MoveSelection>(up));
        EXPECT_EQ(as<MoveSelection>(down)->rows, 1);
        EXPECT_EQ(as<MoveSelection>(up)->rows, -1);
    }

    TEST(PanelKeysTest, TheKeyDecidesBeforeTheCharacter)
    {
        EXPECT_TRUE(is<ActivateSelected>(panelCommand({ 36, modifiers::command, "p" }, {})));
    }

    TEST(PanelKeysTest, CommandPPinsInEitherLetterCase)
    {
        EXPECT_TRUE(is<TogglePin>(character("p", modifiers::command)));
        EXPECT_TRUE(is<TogglePin>(character("P", modifiers::command | modifiers::shift)));
        EXPECT_TRUE(is<Pass>(character("p", 0)));
        EXPECT_TRUE(is<Pass>(character("p", modifiers::option)));
    }

    TEST(PanelKeysTest, CommandDigitsAddressTheFirstTenClips)
    {
        for (std::size_t digit = 0; digit <= 9; ++digit) {
            const auto command = character(std::to_string(digit), modifiers::command, directPaste);

            ASSERT_TRUE(is<ActivateAt>(command)) << digit;
            EXPECT_EQ(as<ActivateAt>(command)->index, digit == 0 ? 9 : digit - 1);
        }
    }

    TEST(PanelKeysTest, DigitsPassWithoutCommandOrWithoutTheSetting)
    {
        EXPECT_TRUE(is<Pass>(character("3", 0, directPaste)));
        EXPECT_TRUE(is<Pass>(character("3", modifiers::command)));
    }

    TEST(PanelKeysTest, EveryOtherCommandCombinationPasses)
    {
        for (const auto* const characters : { "a", "c", "v", "", "!", "12", "٣" })
            EXPECT_TRUE(is<Pass>(character(characters, modifiers::command, directPaste)))
                << characters;
    }

    TEST(PanelKeysTest, TypingPasses)
    {
        EXPECT_TRUE(is<Pass>(character("x", 0)));
        EXPECT_TRUE(is<Pass>(character("é", modifiers::shift)));
    }

} // namespace
} // namespace korvane
