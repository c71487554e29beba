#include "panel/ClipScrollTracker.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using enum ScrollDirection;

    /// A list of this height in a window of 306 points, scrolled so far.
    struct TrackerFixture {
        explicit TrackerFixture(double offset, double contentHeight = 1000)
        {
            tracker.measure(offset, contentHeight, 306);
        }
        ClipScrollTracker tracker;
    };

    TEST(ClipScrollTrackerTest, TheStepsAreThoseOfTheChevrons)
    {
        EXPECT_EQ(approxRowHeight, 50);
        EXPECT_EQ(chevronScrollStep, 4);
        EXPECT_EQ(chevronHoverTickPoints, 4);
        EXPECT_EQ(60 * chevronHoverTickInterval, std::chrono::seconds { 1 });
        EXPECT_EQ(chevronClickDuration, std::chrono::milliseconds { 180 });
    }

    TEST(ClipScrollTrackerTest, BeforeItHasMeasuredThereIsNoChevron)
    {
        const ClipScrollTracker tracker;

        EXPECT_FALSE(tracker.isChevronVisible(up));
        EXPECT_FALSE(tracker.isChevronVisible(down));
    }

    TEST(ClipScrollTrackerTest, AListShorterThanWhatIsSeenHasNeitherChevron)
    {
        const TrackerFixture f(0, 200);

        EXPECT_FALSE(f.tracker.isChevronVisible(up));
        EXPECT_FALSE(f.tracker.isChevronVisible(down));
    }

    TEST(ClipScrollTrackerTest, AnEmptyListHasNeitherChevron)
    {
        const TrackerFixture f(0, 0);

        EXPECT_FALSE(f.tracker.isChevronVisible(up));
        EXPECT_FALSE(f.tracker.isChevronVisible(down));
    }

    TEST(ClipScrollTrackerTest, AListThatIsNotSeenHasNoChevronDown)
    {
        ClipScrollTracker tracker;

        tracker.measure(0, 1000, 0);

        EXPECT_FALSE(tracker.isChevronVisible(down));
    }

    TEST(ClipScrollTrackerTest, TheChevronUpIsHiddenAtThreePointsAndShownAtThreeAndAHalf)
    {
        EXPECT_FALSE(TrackerFixture(0).tracker.isChevronVisible(up));
        EXPECT_FALSE(TrackerFixture(3).tracker.isChevronVisible(up));
        EXPECT_TRUE(TrackerFixture(3.5).tracker.isChevronVisible(up));
    }

    TEST(ClipScrollTrackerTest, TheChevronDownIsHiddenAtThreePointsFromTheEndAndShownBeforeThat)
    {
        EXPECT_TRUE(TrackerFixture(0).tracker.isChevronVisible(down));
        EXPECT_TRUE(TrackerFixture(694 - 3.5).tracker.isChevronVisible(down));
        EXPECT_FALSE(TrackerFixture(694 - 3).tracker.isChevronVisible(down));
        EXPECT_FALSE(TrackerFixture(694).tracker.isChevronVisible(down));
    }

    TEST(ClipScrollTrackerTest, InTheMiddleThereAreBoth)
    {
        const TrackerFixture f(300);

        EXPECT_TRUE(f.tracker.isChevronVisible(up));
        EXPECT_TRUE(f.tracker.isChevronVisible(down));
    }

    TEST(ClipScrollTrackerTest, AScrollEndsWhereTheListDoes)
    {
        EXPECT_EQ(TrackerFixture(100).tracker.offsetAfter(200), 300);
        EXPECT_EQ(TrackerFixture(600).tracker.offsetAfter(200), 694);
        EXPECT_EQ(TrackerFixture(694).tracker.offsetAfter(4), 694);
    }

    TEST(ClipScrollTrackerTest, AScrollUpEndsAtTheTop)
    {
        EXPECT_EQ(TrackerFixture(300).tracker.offsetAfter(-200), 100);
        EXPECT_EQ(TrackerFixture(3).tracker.offsetAfter(-4), 0);
        EXPECT_EQ(TrackerFixture(0).tracker.offsetAfter(-4), 0);
    }

    TEST(ClipScrollTrackerTest, AListThatFitsStaysAtItsTop)
    {
        EXPECT_EQ(TrackerFixture(0, 200).tracker.offsetAfter(200), 0);
        EXPECT_EQ(largestScrollOffset(200, 306), 0);
    }

    TEST(ClipScrollTrackerTest, ItTellsOfEachChangedMeasureAndOfNoOther)
    {
        TrackerFixture f(10);
        int changes = 0;
        const auto connection = f.tracker.changed.connect([&changes] { ++changes; });

        f.tracker.measure(10, 1000, 306);
        EXPECT_EQ(changes, 0);
        f.tracker.measure(11, 1000, 306);
        f.tracker.measure(11, 1050, 306);
        f.tracker.measure(11, 1050, 300);

        EXPECT_EQ(changes, 3);
        EXPECT_EQ(f.tracker.offset(), 11);
        EXPECT_EQ(f.tracker.contentHeight(), 1050);
        EXPECT_EQ(f.tracker.containerHeight(), 300);
    }

} // namespace
} // namespace korvane
