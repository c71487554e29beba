#include "settings/view/SettingsColours.h"

#include "support/Contrast.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using test::contrast;
    using test::over;

    class SettingsColoursTest : public testing::TestWithParam<ColourScheme> {
    protected:
        const Colours& common = coloursOf(GetParam());
        const SettingsColours& colours = settingsColoursOf(GetParam());
    };

    TEST_P(SettingsColoursTest, TextsStandOutOnThePageAndItsCards)
    {
        for (const auto& ground : { colours.window, colours.card, over(colours.card, common.hover),
                 over(colours.card, common.pressed) }) {
            EXPECT_GE(contrast(common.text, ground), 4.5);
            EXPECT_GE(contrast(common.secondary, ground), 4.5);
        }
        EXPECT_GE(contrast(common.text, over(colours.card, common.badge)), 4.5);
    }

    TEST_P(SettingsColoursTest, TextsStandOutInTheRowOfPages)
    {
        for (const auto& ground :
            { colours.bar, over(colours.bar, common.hover), over(colours.bar, common.pressed) })
            EXPECT_GE(contrast(common.secondary, ground), 4.5);
        for (const auto& ground :
            { over(colours.bar, colours.chosenTab), over(colours.bar, common.pressed) })
            EXPECT_GE(contrast(colours.chosenTabText, ground), 4.5);
    }

    TEST_P(SettingsColoursTest, TextsStandOutOnControls)
    {
        for (const auto& ground :
            { colours.control, colours.controlHover, colours.controlPressed }) {
            EXPECT_GE(contrast(common.text, ground), 4.5);
            EXPECT_GE(contrast(common.redText, ground), 4.5);
        }
        for (const auto& ground : { colours.chief, colours.chiefHover })
            EXPECT_GE(contrast(common.onAccent, ground), 4.5);
        const auto segments = over(colours.card, colours.segments);
        EXPECT_GE(contrast(common.secondary, segments), 4.5);
        EXPECT_GE(contrast(common.secondary, over(segments, common.hover)), 4.5);
        EXPECT_GE(contrast(common.secondary, over(segments, common.pressed)), 4.5);
        EXPECT_GE(contrast(common.text, colours.segmentOn), 4.5);
    }

    /// WCAG 2.1, 1.4.11: what tells a state must be seen, though it is no text.
    TEST_P(SettingsColoursTest, TheRingOfTheFocusAndASwitchThatIsOnStandOut)
    {
        EXPECT_GE(contrast(colours.focus, colours.card), 3);
        EXPECT_GE(contrast(colours.focus, colours.window), 3);
        EXPECT_GE(contrast(colours.focus, colours.bar), 3);
        EXPECT_GE(contrast(colours.trackOn, colours.card), 3);
        EXPECT_GE(contrast(colours.thumb, colours.trackOn), 3);
    }

    TEST_P(SettingsColoursTest, WhatDoesNothingNowStandsBack)
    {
        EXPECT_LT(
            contrast(colours.disabled, colours.card), contrast(common.secondary, colours.card));
        EXPECT_GE(contrast(colours.disabled, colours.card), 2);
    }

    INSTANTIATE_TEST_SUITE_P(
        Schemes, SettingsColoursTest, testing::Values(ColourScheme::light, ColourScheme::dark));

} // namespace
} // namespace korvane
