#include "app/PreviewPlacement.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using previewplacement::frame;
    using previewplacement::Wish;

    constexpr Rect visible { 0, 0, 1440, 900 };
    constexpr Rect panel { 532, 420, 360, 480 };

    TEST(PreviewPlacementTest, ThePreviewIsTwentyFourPointsHigherThanItsText)
    {
        EXPECT_EQ(previewplacement::height(100, visible), 124);
    }

    TEST(PreviewPlacementTest, AHeightBetweenTwoPointsIsRoundedUpBeforeAnythingIsAdded)
    {
        EXPECT_EQ(previewplacement::height(100.1, visible), 125);
    }

    TEST(PreviewPlacementTest, AOneLineClipIsAtLeast36PointsHigh)
    {
        EXPECT_EQ(previewplacement::height(18, visible), 42);
        EXPECT_EQ(previewplacement::height(12, visible), 36);
        EXPECT_EQ(previewplacement::height(11, visible), 36);
        EXPECT_EQ(previewplacement::height(0, visible), 36);
    }

    TEST(PreviewPlacementTest, TheWindowStaysSixteenPointsBelowTheVisibleHeight)
    {
        EXPECT_EQ(previewplacement::height(859, visible), 883);
        EXPECT_EQ(previewplacement::height(860, visible), 884);
        EXPECT_EQ(previewplacement::height(861, visible), 884);
        EXPECT_EQ(previewplacement::height(100000, visible), 884);
    }

    TEST(PreviewPlacementTest, AScreenLowerThanTheMinimumStillGivesTheMinimum)
    {
        EXPECT_EQ(previewplacement::height(1000, { 0, 0, 1440, 40 }), 36);
    }

    TEST(PreviewPlacementTest, TheTextIsLaidOutTwelvePointsInsideOnEverySide)
    {
        EXPECT_EQ(previewplacement::textWidth, 460);
        EXPECT_EQ(frame(100, panel, visible, {}).width, 484);
    }

    TEST(PreviewPlacementTest, TheRightSideIsEightPointsFromThePanel)
    {
        EXPECT_EQ(previewplacement::x(panel, visible, PreviewSide::right), 892 + 8);
    }

    TEST(PreviewPlacementTest, TheLeftSideIsEightPointsFromThePanel)
    {
        EXPECT_EQ(previewplacement::x(panel, visible, PreviewSide::left), 532 - 8 - 484);
    }

    TEST(PreviewPlacementTest, WithThePanelAtTheRightEdgeItOpensOnTheLeftThoughTheRightIsWished)
    {
        const Rect atTheRight { 1440 - 8 - 360, 420, 360, 480 };

        EXPECT_EQ(previewplacement::x(atTheRight, visible, PreviewSide::right), 1072 - 8 - 484);
    }

    TEST(PreviewPlacementTest, WithThePanelAtTheLeftEdgeItOpensOnTheRightThoughTheLeftIsWished)
    {
        const Rect atTheLeft { 8, 420, 360, 480 };

        EXPECT_EQ(previewplacement::x(atTheLeft, visible, PreviewSide::left), 368 + 8);
    }

    TEST(PreviewPlacementTest, TheRightSideHasRoomUntilFourPointsBeforeTheScreensEdge)
    {
        const Rect fitting { 1436 - 484 - 8 - 360, 420, 360, 480 };
        const Rect tooFar { fitting.x + 1, 420, 360, 480 };

        EXPECT_EQ(previewplacement::x(fitting, visible, PreviewSide::right), 1436 - 484);
        EXPECT_EQ(
            previewplacement::x(tooFar, visible, PreviewSide::right), tooFar.left() - 8 - 484);
    }

    TEST(PreviewPlacementTest, TheLeftSideHasRoomUntilFourPointsBeforeTheScreensEdge)
    {
        const Rect fitting { 4 + 484 + 8, 420, 360, 480 };
        const Rect tooFar { fitting.x - 1, 420, 360, 480 };

        EXPECT_EQ(previewplacement::x(fitting, visible, PreviewSide::left), 4);
        EXPECT_EQ(previewplacement::x(tooFar, visible, PreviewSide::left), tooFar.right() + 8);
    }

    TEST(PreviewPlacementTest, WhereNeitherSideHasRoomItIsTheWishedOne)
    {
        const Rect narrow { 0, 0, 1000, 900 };
        const Rect inTheMiddle { 320, 420, 360, 480 };

        EXPECT_EQ(previewplacement::x(inTheMiddle, narrow, PreviewSide::right), 688);
        EXPECT_EQ(previewplacement::x(inTheMiddle, narrow, PreviewSide::left), 320 - 8 - 484);
    }

    TEST(PreviewPlacementTest, ABarAtTheSideOfTheScreenTakesTheRoomAway)
    {
        const Rect besideABar { 100, 0, 1340, 900 };
        const Rect nearTheBar { 500, 420, 360, 480 };

        EXPECT_EQ(previewplacement::x(nearTheBar, besideABar, PreviewSide::left), 868);
    }

    TEST(PreviewPlacementTest, InTheMiddleItIsCentredOnThePanel)
    {
        const Wish wish { .position = PreviewPosition::middle, .rowMidY = 200 };

        EXPECT_EQ(previewplacement::y(100, panel, visible, wish), 660 - 50);
    }

    TEST(PreviewPlacementTest, AtTheTopItLinesUpWithTheTopOfTheList)
    {
        const Wish wish { .position = PreviewPosition::top, .rowMidY = 200 };

        EXPECT_EQ(previewplacement::y(100, panel, visible, wish) + 100, 900 - 121);
    }

    TEST(PreviewPlacementTest, FollowingItIsCentredOnTheSelectedRow)
    {
        const Wish wish { .position = PreviewPosition::follow, .rowMidY = 199 };

        EXPECT_EQ(previewplacement::y(100, panel, visible, wish) + 50, 900 - 199);
    }

    TEST(PreviewPlacementTest, FollowingWithoutARowItIsCentredOnThePanel)
    {
        const Wish wish { .position = PreviewPosition::follow };

        EXPECT_EQ(previewplacement::y(100, panel, visible, wish), 660 - 50);
    }

    TEST(PreviewPlacementTest, ItStaysFourPointsBelowTheVisibleTop)
    {
        const Wish wish { .position = PreviewPosition::follow, .rowMidY = 10 };

        EXPECT_EQ(previewplacement::y(100, panel, visible, wish), 900 - 100 - 4);
    }

    TEST(PreviewPlacementTest, ItStaysFourPointsAboveTheVisibleBottom)
    {
        const Rect besideABarBelow { 0, 40, 1440, 860 };
        const Wish wish { .position = PreviewPosition::follow, .rowMidY = 860 };

        EXPECT_EQ(previewplacement::y(100, panel, besideABarBelow, wish), 44);
    }

    TEST(PreviewPlacementTest, WhereItIsHigherThanTheRoomTheBottomIsKept)
    {
        const Rect low { 0, 0, 1440, 40 };

        EXPECT_EQ(previewplacement::y(36, panel, low, {}), 4);
    }

    TEST(PreviewPlacementTest, TheFrameHasAllOfIt)
    {
        const Wish wish { PreviewSide::left, PreviewPosition::top, std::nullopt };

        EXPECT_EQ(frame(99.5, panel, visible, wish), (Rect { 40, 900 - 121 - 124, 484, 124 }));
    }

} // namespace
} // namespace korvane
