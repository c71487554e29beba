#include "panel/view/ChevronScroller.h"

#include "support/ManualLoop.h"

#include <gtest/gtest.h>

#include <QWidget>

#include <algorithm>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using enum ScrollDirection;

    /// A list of 1000 points of which 300 are seen.
    struct ScrollerFixture {
        ScrollerFixture() { scrollTo(0); }

        /// As the list does it, for whoever asks.
        void scrollTo(double to)
        {
            offset = std::clamp(to, 0.0, largestScrollOffset(contentHeight, 300));
            scroller.measure(offset, contentHeight, 300);
        }

        test::ManualLoop loop;
        double contentHeight = 1000;
        double offset = 0;
        int scrolls = 0;
        QWidget list;
        ChevronScroller scroller { loop, list, [this](double to) {
                                      ++scrolls;
                                      scrollTo(to);
                                  } };
    };

    TEST(ChevronScrollerTest, EnteringScrollsByFourPointsAtOnce)
    {
        ScrollerFixture f;

        f.scroller.enter(down);

        EXPECT_EQ(f.offset, 4);
    }

    TEST(ChevronScrollerTest, RestingScrollsByFourPointsSixtyTimesASecond)
    {
        ScrollerFixture f;

        f.scroller.enter(down);
        f.loop.advance(1s);

        EXPECT_EQ(f.offset, 4 + 60 * 4);
    }

    TEST(ChevronScrollerTest, OnTheOtherChevronItGoesUp)
    {
        ScrollerFixture f;
        f.scrollTo(400);

        f.scroller.enter(up);
        EXPECT_EQ(f.offset, 396);
        f.loop.advance(500ms);

        EXPECT_EQ(f.offset, 396 - 30 * 4);
    }

    TEST(ChevronScrollerTest, LeavingStops)
    {
        ScrollerFixture f;
        f.scroller.enter(down);
        f.loop.advance(100ms);
        const double before = f.offset;

        f.scroller.leave(down);
        f.loop.advance(1s);

        EXPECT_EQ(f.offset, before);
        EXPECT_EQ(f.loop.pendingTimers(), 0U);
    }

    TEST(ChevronScrollerTest, LeavingTheOneAfterEnteringTheOtherStopsNothing)
    {
        ScrollerFixture f;
        f.scrollTo(400);
        f.scroller.enter(down);

        f.scroller.enter(up);
        f.scroller.leave(down);
        f.loop.advance(1s);

        EXPECT_EQ(f.offset, 404 - 4 - 60 * 4);
    }

    TEST(ChevronScrollerTest, ATickAtTheTopDoesNotGoAboveIt)
    {
        ScrollerFixture f;
        f.scrollTo(3.5);

        f.scroller.enter(up);

        EXPECT_EQ(f.offset, 0);
    }

    TEST(ChevronScrollerTest, ItStopsWhenTheChevronDisappearsUnderThePointer)
    {
        ScrollerFixture f;
        f.scrollTo(690);

        f.scroller.enter(down); // three points before the end there is no chevron any more
        f.loop.advance(1s);

        EXPECT_EQ(f.offset, 698);
        EXPECT_EQ(f.loop.pendingTimers(), 0U);
    }

    TEST(ChevronScrollerTest, RestingWhereAListGrowsScrollsOnOnlyAfterAnotherComing)
    {
        ScrollerFixture f;
        f.scrollTo(690);
        f.scroller.enter(down);
        f.loop.advance(1s);
        const double atTheEnd = f.offset;

        f.contentHeight = 2000;
        f.scrollTo(atTheEnd);
        f.loop.advance(1s);
        EXPECT_EQ(f.offset, atTheEnd);
        f.scroller.enter(down);

        EXPECT_EQ(f.offset, atTheEnd + 4);
    }

    TEST(ChevronScrollerTest, InClickModeRestingDoesNothing)
    {
        ScrollerFixture f;
        f.scroller.setActivation(ChevronActivation::click);

        f.scroller.enter(down);
        f.loop.advance(1s);

        EXPECT_EQ(f.offset, 0);
        EXPECT_EQ(f.scrolls, 0);
    }

    TEST(ChevronScrollerTest, SwitchingToClickStopsTheScrollingOfAPointerThatRests)
    {
        ScrollerFixture f;
        f.scroller.enter(down);
        f.loop.advance(100ms);
        const double before = f.offset;

        f.scroller.setActivation(ChevronActivation::click);
        f.loop.advance(1s);

        EXPECT_EQ(f.offset, before);
        EXPECT_EQ(f.loop.pendingTimers(), 0U);
    }

    TEST(ChevronScrollerTest, OtherPreferencesThatChangeStopNothing)
    {
        ScrollerFixture f;
        f.scroller.enter(down);

        f.scroller.setActivation(ChevronActivation::hover);
        f.loop.advance(1s);

        EXPECT_EQ(f.offset, 4 + 60 * 4);
    }

    TEST(ChevronScrollerTest, AClickScrollsByTwoHundredPointsFastAtFirstAndEverSlower)
    {
        ScrollerFixture f;
        f.scroller.setActivation(ChevronActivation::click);

        f.scroller.click(down);
        EXPECT_EQ(f.offset, 0);
        f.loop.advance(90ms);
        EXPECT_GT(f.offset, 100);
        EXPECT_LT(f.offset, 200);
        f.loop.advance(110ms);

        EXPECT_EQ(f.offset, 200);
        EXPECT_EQ(f.loop.pendingTimers(), 0U);
    }

    TEST(ChevronScrollerTest, AClickOnTheOtherChevronGoesUpByAsMuch)
    {
        ScrollerFixture f;
        f.scrollTo(500);

        f.scroller.click(up);
        f.loop.advance(200ms);

        EXPECT_EQ(f.offset, 300);
    }

    TEST(ChevronScrollerTest, AClickNearTheEndScrollsToTheEndAndNeverPastIt)
    {
        ScrollerFixture f;
        f.scrollTo(600);
        f.scroller.click(down);
        f.loop.advance(200ms);
        EXPECT_EQ(f.offset, 700);

        f.scrollTo(50);
        f.scroller.click(up);
        f.loop.advance(200ms);
        EXPECT_EQ(f.offset, 0);
    }

    TEST(ChevronScrollerTest, AClickActsWhileRestingScrollsToo)
    {
        ScrollerFixture f;
        f.scroller.enter(down);
        f.loop.advance(100ms);
        const double before = f.offset;

        f.scroller.click(down);
        f.loop.advance(200ms);
        EXPECT_GE(f.offset, before + 200);
        const double after = f.offset;
        f.loop.advance(1s);

        EXPECT_GE(f.offset, std::min(after + 59 * 4, 697.0)); // resting goes on
    }

    TEST(ChevronScrollerTest, AUserWhoTurnsTheWheelEndsTheScrollOfAClick)
    {
        ScrollerFixture f;
        f.scrollTo(300);
        f.scroller.click(down);
        f.loop.advance(50ms);

        f.scrollTo(120);
        f.loop.advance(1s);

        EXPECT_EQ(f.offset, 120);
        EXPECT_EQ(f.loop.pendingTimers(), 0U);
    }

    TEST(ChevronScrollerTest, ATickOfTheOtherChevronEndsTheScrollOfAClick)
    {
        ScrollerFixture f;
        f.scrollTo(300);
        f.scroller.click(down);
        f.loop.advance(48ms);
        const double turned = f.offset;

        f.scroller.enter(up);
        EXPECT_EQ(f.offset, turned - 4);
        f.loop.advance(17ms);
        EXPECT_EQ(f.offset, turned - 8);
    }

    TEST(ChevronScrollerTest, ASecondClickGoesOnFromWhereTheListIsThen)
    {
        ScrollerFixture f;
        f.scroller.setActivation(ChevronActivation::click);
        f.scroller.click(down);
        f.loop.advance(96ms);
        const double second = f.offset;

        f.scroller.click(down);
        f.loop.advance(200ms);

        EXPECT_EQ(f.offset, second + 200);
    }

    TEST(ChevronScrollerTest, ACopyThatMakesTheListLongerLeavesTheScrollOfAClickAlone)
    {
        ScrollerFixture f;
        f.scroller.click(down);
        f.loop.advance(50ms);

        f.contentHeight = 1050;
        f.scrollTo(f.offset);
        f.loop.advance(200ms);

        EXPECT_EQ(f.offset, 200);
    }

    TEST(ChevronScrollerTest, AListThatIsHiddenScrollsNoMore)
    {
        ScrollerFixture f;
        f.scroller.enter(down);
        f.scroller.click(down);
        f.loop.advance(50ms);
        const double before = f.offset;

        f.scroller.stop();
        f.loop.advance(1s);

        EXPECT_EQ(f.offset, before);
        EXPECT_EQ(f.loop.pendingTimers(), 0U);
    }

} // namespace
} // namespace korvane
