#include "look/view/Colours.h"

#include "app/view/ApplicationTheme.h"
#include "support/Contrast.h"

#include <gtest/gtest.h>

#include <QGuiApplication>

#include <algorithm>
#include <cmath>

namespace korvane {
namespace {

    using test::contrast;
    using test::over;

    class ColoursTest : public testing::TestWithParam<ColourScheme> { };

    TEST_P(ColoursTest, TextsStandOutAgainstEveryGroundThatTheyStandOn)
    {
        const auto& colours = coloursOf(GetParam());
        const auto& panel = colours.panel;
        for (const auto& ground : { panel, over(panel, colours.hover), over(panel, colours.pressed),
                 over(panel, colours.field), over(panel, colours.chip) }) {
            EXPECT_GE(contrast(colours.text, ground), 4.5);
            EXPECT_GE(contrast(colours.secondary, ground), 4.5);
        }
        for (const auto& ground :
            { panel, over(panel, colours.hover), over(panel, colours.pressed) })
            EXPECT_GE(contrast(colours.secondary, over(ground, colours.badge)), 4.5);
        EXPECT_GE(contrast(colours.orangeText, panel), 4.5);
        EXPECT_GE(contrast(colours.redText, panel), 4.5);
    }

    TEST_P(ColoursTest, TextsStandOutOnTheSelectedRow)
    {
        const auto& colours = coloursOf(GetParam());
        const auto selected = over(colours.panel, colours.selection);
        for (const auto& ground : { selected, over(selected, colours.pressed) }) {
            EXPECT_GE(contrast(colours.text, ground), 4.5);
            EXPECT_GE(contrast(colours.onSelection, ground), 4.5);
            EXPECT_GE(contrast(colours.onSelection, over(ground, colours.badge)), 4.5);
        }
    }

    TEST_P(ColoursTest, ANameThatIsTypedStandsOutInItsField)
    {
        const auto& colours = coloursOf(GetParam());
        // The field stands on its row, which may be the selected one.
        for (const auto& row : { colours.panel, over(colours.panel, colours.hover),
                 over(colours.panel, colours.selection) })
            EXPECT_GE(contrast(colours.text, over(row, colours.field)), 4.5);
    }

    TEST_P(ColoursTest, TextsStandOutInMenusAndToolTips)
    {
        const auto palette = applicationPalette(GetParam());
        const auto& colours = coloursOf(GetParam());
        for (const auto role : { QPalette::Window, QPalette::Base, QPalette::Button }) {
            EXPECT_GE(contrast(palette.color(QPalette::WindowText), palette.color(role)), 4.5);
            EXPECT_GE(contrast(colours.redText, palette.color(role)), 4.5);
        }
        EXPECT_GE(
            contrast(palette.color(QPalette::ToolTipText), palette.color(QPalette::ToolTipBase)),
            4.5);
    }

    TEST_P(ColoursTest, ThePaletteOfASchemeTellsTheScheme)
    {
        QPalette palette;
        palette.setColor(QPalette::Window, coloursOf(GetParam()).panel);
        palette.setColor(QPalette::WindowText, coloursOf(GetParam()).text);

        EXPECT_EQ(schemeOf(palette), GetParam());
    }

    TEST_P(ColoursTest, TheAccentIsTheSame)
    {
        EXPECT_EQ(coloursOf(GetParam()).accent, QColor(28, 158, 117));
    }

    TEST_P(ColoursTest, TheLineOfAMenuThatDeletesCanBeReadAlsoUnderThePointer)
    {
        const auto& colours = coloursOf(GetParam());
        const auto ink = colours.redText;

        EXPECT_GE(contrast(ink, colours.panel), 4.5);
        EXPECT_GE(contrast(ink, over(colours.panel, colours.pressed)), 4.5);
        EXPECT_GE(contrast(colours.text, over(colours.panel, colours.pressed)), 4.5);
    }

    INSTANTIATE_TEST_SUITE_P(
        Schemes, ColoursTest, testing::Values(ColourScheme::light, ColourScheme::dark));

} // namespace
} // namespace korvane
