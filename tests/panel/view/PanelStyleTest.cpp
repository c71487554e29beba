#include "panel/view/PanelStyle.h"

#include <gtest/gtest.h>

#include <QFontInfo>
#include <QGuiApplication>

#include <algorithm>
#include <cmath>

namespace korvane {
namespace {

    double linear(double channel)
    {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    }
    double luminance(const QColor& colour)
    {
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
            + 0.0722 * linear(colour.blueF());
    }
    QColor over(const QColor& ground, const QColor& colour)
    {
        const double share = colour.alphaF();
        const auto mixed = [share](double under, double above) {
            return static_cast<float>(under * (1 - share) + above * share);
        };
        return QColor::fromRgbF(mixed(ground.redF(), colour.redF()),
            mixed(ground.greenF(), colour.greenF()), mixed(ground.blueF(), colour.blueF()));
    }
    /// WCAG 2.1, 1.4.3.
    double contrast(const QColor& a, const QColor& b)
    {
        const double first = luminance(a);
        const double second = luminance(b);
        return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
    }

    class PanelStyleTest : public testing::TestWithParam<ColourScheme> { };

    TEST_P(PanelStyleTest, TextsStandOutAgainstEveryGroundThatTheyStandOn)
    {
        const auto& colours = panelColours(GetParam());
        const auto onBadge = [&](const QColor& ground) { return over(ground, colours.badge); };
        const auto grounds = { colours.panel, over(colours.panel, colours.hover),
            over(colours.panel, colours.field), over(colours.panel, colours.chip) };

        for (const auto& ground : grounds) {
            EXPECT_GE(contrast(colours.text, ground), 4.5);
            EXPECT_GE(contrast(colours.secondary, ground), 4.5);
        }
        for (const auto& ground : { colours.panel, over(colours.panel, colours.hover) })
            EXPECT_GE(contrast(colours.secondary, onBadge(ground)), 4.5);
        const auto selected = over(colours.panel, colours.selection);
        EXPECT_GE(contrast(colours.text, selected), 4.5);
        EXPECT_GE(contrast(colours.onSelection, selected), 4.5);
        EXPECT_GE(contrast(colours.onSelection, onBadge(selected)), 4.5);
    }

    TEST_P(PanelStyleTest, ThePaletteOfASchemeTellsTheScheme)
    {
        QPalette palette;
        palette.setColor(QPalette::Window, panelColours(GetParam()).panel);
        palette.setColor(QPalette::WindowText, panelColours(GetParam()).text);

        EXPECT_EQ(schemeOf(palette), GetParam());
    }

    TEST_P(PanelStyleTest, TheAccentIsTheSame)
    {
        EXPECT_EQ(panelColours(GetParam()).accent, QColor(28, 158, 117));
    }

    INSTANTIATE_TEST_SUITE_P(
        Schemes, PanelStyleTest, testing::Values(ColourScheme::light, ColourScheme::dark));

    TEST(PanelFontTest, ItIsTheDesktopsOwnInTheSizeOfThePanel)
    {
        const auto font = panelFont(10.5, QFont::Medium);

        EXPECT_EQ(font.family(), QGuiApplication::font().family());
        EXPECT_EQ(font.weight(), QFont::Medium);
        EXPECT_NEAR(QFontInfo(panelFont(14)).pixelSize(), 14, 0.5);
    }

} // namespace
} // namespace korvane
