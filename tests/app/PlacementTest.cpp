#include "app/Placement.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using placement::panelFrame;

    constexpr Rect visible { 0, 0, 1440, 900 };
    constexpr Rect icon { 700, 900, 24, 26 };

    TEST(PlacementTest, PanelIsAtLeast250PointsHigh)
    {
        EXPECT_EQ(placement::panelHeight(0, visible), 250);
        EXPECT_EQ(placement::panelHeight(1, visible), 250);
        EXPECT_EQ(placement::panelHeight(2, visible), 270);
    }

    TEST(PlacementTest, PanelGrowsBy50PointsAClip)
    {
        EXPECT_EQ(placement::panelHeight(3, visible), 320);
    }

    TEST(PlacementTest, PanelStaysTwentyPointsBelowTheVisibleHeight)
    {
        EXPECT_EQ(placement::panelHeight(100, visible), 880);
        EXPECT_EQ(placement::panelHeight(9999, visible), 880);
    }

    TEST(PlacementTest, AScreenLowerThanTheMinimumStillGivesTheMinimum)
    {
        EXPECT_EQ(placement::panelHeight(100, { 0, 0, 400, 200 }), 250);
    }

    TEST(PlacementTest, MiddleCentresThePanelUnderTheIcon)
    {
        EXPECT_EQ(
            panelFrame(icon, visible, 3, PanelAlignment::middle), (Rect { 532, 580, 360, 320 }));
    }

    TEST(PlacementTest, LeftHangsThePanelFromTheIconsRightEdge)
    {
        EXPECT_EQ(panelFrame(icon, visible, 3, PanelAlignment::left).x, 724 - 360);
    }

    TEST(PlacementTest, RightHangsThePanelFromTheIconsLeftEdge)
    {
        EXPECT_EQ(panelFrame(icon, visible, 3, PanelAlignment::right).x, 700);
    }

    TEST(PlacementTest, NearTheRightEndThePanelIsPushedBackToEightPointsInside)
    {
        const Rect atTheEnd { 1400, 900, 24, 26 };

        const Rect frame = panelFrame(atTheEnd, visible, 3, PanelAlignment::right);

        EXPECT_EQ(frame.right(), 1440 - 8);
    }

    TEST(PlacementTest, NearTheLeftEndThePanelStaysEightPointsInside)
    {
        EXPECT_EQ(panelFrame({ 10, 900, 24, 26 }, visible, 3, PanelAlignment::left).x, 8);
    }

    TEST(PlacementTest, TheRightBoundIsTheVisibleWidthEvenBesideABarOnTheLeft)
    {
        const Rect besideABar { 60, 0, 1380, 900 };

        const Rect frame = panelFrame({ 1400, 900, 24, 26 }, besideABar, 3, PanelAlignment::right);

        EXPECT_EQ(frame.x, 1380 - 360 - 8);
    }

    TEST(PlacementTest, ThePanelsTopTouchesTheIconsUnderside)
    {
        EXPECT_EQ(panelFrame(icon, visible, 10, PanelAlignment::middle).top(), 900);
    }

    TEST(PlacementTest, ThePanelStaysEightPointsAboveTheVisibleBottom)
    {
        const Rect atTheBottom { 700, 10, 24, 26 };

        EXPECT_EQ(panelFrame(atTheBottom, visible, 3, PanelAlignment::middle).y, 8);
    }

    TEST(PlacementTest, AWindowBesideThePanelStandsOnItsLeft)
    {
        const Rect panel { 700, 400, 360, 480 };

        EXPECT_EQ(placement::besidePanel(520, 420, panel, visible), (Rect { 172, 460, 520, 420 }));
    }

    TEST(PlacementTest, AWindowBesideAPanelNearTheLeftEdgeStandsOnItsRight)
    {
        const Rect panel { 100, 400, 360, 480 };

        EXPECT_EQ(placement::besidePanel(520, 420, panel, visible).x, 468);
    }

    TEST(PlacementTest, AWindowThatFitsOnNeitherSideStandsInTheMiddle)
    {
        const Rect panel { 300, 400, 360, 480 };

        EXPECT_EQ(placement::besidePanel(1000, 420, panel, visible).x, 220);
    }

    TEST(PlacementTest, AWindowBesideThePanelKeepsEightPointsToTopAndBottom)
    {
        EXPECT_EQ(
            placement::besidePanel(520, 420, Rect { 700, 300, 360, 700 }, visible).top(), 892);
        EXPECT_EQ(placement::besidePanel(520, 420, Rect { 700, 0, 360, 250 }, visible).y, 8);
    }

    TEST(PlacementTest, AWindowThatIsTooLargeForTheScreenIsAsLargeAsThereIsRoom)
    {
        const Rect small { 0, 0, 400, 287 };

        EXPECT_EQ(placement::besidePanel(520, 482, std::nullopt, small), (Rect { 8, 8, 384, 271 }));
        EXPECT_EQ(placement::besidePanel(520, 482, Rect { 20, 8, 360, 270 }, small),
            (Rect { 8, 8, 384, 271 }));
    }

    TEST(PlacementTest, WithoutAPanelTheWindowIsCentred)
    {
        EXPECT_EQ(
            placement::besidePanel(520, 420, std::nullopt, visible), (Rect { 460, 240, 520, 420 }));
    }

} // namespace
} // namespace korvane
