#include "platform/x11/WorkArea.h"

#include "PrintPixelRect.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <vector>

namespace korvane {
namespace {

    constexpr PixelRect screen { 0, 0, 1440, 900 };
    // Two monitors side by side; the right one is lower.
    constexpr PixelRect wideScreen { 0, 0, 3360, 1080 };
    constexpr PixelRect leftMonitor { 0, 0, 1440, 900 };
    constexpr PixelRect rightMonitor { 1440, 0, 1920, 1080 };

    Strut top(std::uint32_t depth, std::uint32_t start, std::uint32_t end)
    {
        return { .top = { depth, start, end } };
    }
    Strut bottom(std::uint32_t depth, std::uint32_t start, std::uint32_t end)
    {
        return { .bottom = { depth, start, end } };
    }
    Strut left(std::uint32_t depth, std::uint32_t start, std::uint32_t end)
    {
        return { .left = { depth, start, end } };
    }
    Strut right(std::uint32_t depth, std::uint32_t start, std::uint32_t end)
    {
        return { .right = { depth, start, end } };
    }

    TEST(WorkAreaTest, WithoutBarsItIsTheMonitor)
    {
        EXPECT_EQ(workArea(screen, screen, {}), screen);
    }

    TEST(WorkAreaTest, ABarAtEachEdgeIsTakenOff)
    {
        const std::vector<Strut> struts { top(27, 0, 1439), bottom(30, 0, 1439), left(40, 0, 899),
            right(50, 0, 899) };

        EXPECT_EQ(workArea(screen, screen, struts), (PixelRect { 40, 27, 1350, 843 }));
    }

    TEST(WorkAreaTest, OfTwoBarsAtOneEdgeTheDeeperCounts)
    {
        const std::vector<Strut> struts { top(60, 0, 700), top(27, 701, 1439) };

        EXPECT_EQ(workArea(screen, screen, struts), (PixelRect { 0, 60, 1440, 840 }));
    }

    TEST(WorkAreaTest, ABarThatCoversAPartOfAnEdgeTakesTheWholeEdge)
    {
        const std::vector<Strut> struts { top(26, 1300, 1439) };

        EXPECT_EQ(workArea(screen, screen, struts), (PixelRect { 0, 26, 1440, 874 }));
    }

    TEST(WorkAreaTest, ABarOnTheOtherMonitorDoesNotCount)
    {
        const std::vector<Strut> struts { top(27, 1440, 3359) };

        EXPECT_EQ(workArea(leftMonitor, wideScreen, struts), leftMonitor);
        EXPECT_EQ(workArea(rightMonitor, wideScreen, struts), (PixelRect { 1440, 27, 1920, 1053 }));
    }

    TEST(WorkAreaTest, ABarAtAnInnerEdgeTakesNothingFromTheMonitorThatItReachesOver)
    {
        // It stands at the left edge of the right monitor and is measured from the screen's.
        const std::vector<Strut> struts { left(1440 + 48, 0, 1079) };

        EXPECT_EQ(workArea(leftMonitor, wideScreen, struts), leftMonitor);
        EXPECT_EQ(workArea(rightMonitor, wideScreen, struts), (PixelRect { 1488, 0, 1872, 1080 }));
    }

    TEST(WorkAreaTest, ABarBelowAMonitorThatEndsAboveTheScreensBottomIsMeasuredFromTheScreens)
    {
        const std::vector<Strut> struts { bottom(180 + 30, 0, 1439) };

        EXPECT_EQ(workArea(leftMonitor, wideScreen, struts), (PixelRect { 0, 0, 1440, 870 }));
    }

    TEST(WorkAreaTest, ABarWithoutEndsMeansTheWholeEdge)
    {
        const std::vector<Strut> struts { top(24, 0, 0) };

        EXPECT_EQ(workArea(rightMonitor, wideScreen, struts), (PixelRect { 1440, 24, 1920, 1056 }));
    }

    TEST(WorkAreaTest, NumbersThatLeaveNothingAreNotBelieved)
    {
        constexpr auto huge = std::numeric_limits<std::uint32_t>::max();
        const std::vector<Strut> struts { top(900, 0, 1439), bottom(huge, 0, huge),
            left(1000, 0, 899), right(1000, 0, 899) };

        EXPECT_EQ(workArea(screen, screen, struts), (PixelRect { 1000, 0, 440, 900 }));
    }

} // namespace
} // namespace korvane
