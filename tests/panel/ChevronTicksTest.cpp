#include "panel/ChevronTicks.h"

#include "support/ManualLoop.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using namespace std::chrono_literals;

    struct TicksFixture {
        test::ManualLoop loop;
        int count = 0;
        std::function<void()> also;
        ChevronTicks ticks { loop, [this] {
                                ++count;
                                if (also)
                                    also();
                            } };
    };

    TEST(ChevronTicksTest, TheFirstTickComesAtOnceAndTheNextAfterASixtiethOfASecond)
    {
        TicksFixture f;

        f.ticks.start();
        EXPECT_EQ(f.count, 1);
        f.loop.advance(16ms);
        EXPECT_EQ(f.count, 1);
        f.loop.advance(1ms);
        EXPECT_EQ(f.count, 2);
    }

    TEST(ChevronTicksTest, ThereAreSixtyTicksASecondHoweverLongItLasts)
    {
        TicksFixture f;
        f.ticks.start();

        f.loop.advance(1s);
        EXPECT_EQ(f.count, 1 + 60);
        f.loop.advance(59s);
        EXPECT_EQ(f.count, 1 + 3600);
    }

    TEST(ChevronTicksTest, StoppedItCostsNothing)
    {
        TicksFixture f;
        f.ticks.start();
        f.loop.advance(100ms);
        const int before = f.count;

        f.ticks.stop();
        f.loop.advance(1s);

        EXPECT_EQ(f.count, before);
        EXPECT_FALSE(f.ticks.isRunning());
        EXPECT_EQ(f.loop.pendingTimers(), 0U);
    }

    TEST(ChevronTicksTest, ATickMayStopThemTheFirstOneToo)
    {
        TicksFixture f;
        f.also = [&f] { f.ticks.stop(); };

        f.ticks.start();
        f.loop.advance(1s);
        EXPECT_EQ(f.count, 1);

        f.also = [&f] {
            if (f.count == 5)
                f.ticks.stop();
        };
        f.ticks.start();
        f.loop.advance(1s);
        EXPECT_EQ(f.count, 5);
    }

    TEST(ChevronTicksTest, StartedAnewTheyTickAtOnce)
    {
        TicksFixture f;
        f.ticks.start();
        f.ticks.stop();

        f.ticks.start();
        EXPECT_EQ(f.count, 2);
        f.loop.advance(17ms);
        EXPECT_EQ(f.count, 3);
    }

    TEST(ChevronTicksTest, ATickThatComesLateIsMadeUpForByTheNext)
    {
        TicksFixture f;
        f.ticks.start();
        f.loop.setNow(f.loop.now() + 10ms); // the loop was held up

        f.loop.advance(17ms); // the tick of 17 ms, at 27 ms
        EXPECT_EQ(f.count, 2);
        f.loop.advance(7ms); // the tick of 34 ms is on time again
        EXPECT_EQ(f.count, 3);
    }

    TEST(ChevronTicksTest, AfterALongHoldUpTheListDoesNotLeap)
    {
        TicksFixture f;
        f.ticks.start();
        f.loop.setNow(f.loop.now() + 10s);

        f.loop.advance(17ms);
        EXPECT_EQ(f.count, 2);
        f.loop.advance(1s);
        EXPECT_EQ(f.count, 2 + 60);
    }

    TEST(ChevronTicksTest, AClockThatIsSetBackDoesNotHoldThemUp)
    {
        TicksFixture f;
        f.ticks.start();
        f.loop.setNow(f.loop.now() - 1h);

        f.loop.advance(17ms);
        EXPECT_EQ(f.count, 2);
        f.loop.advance(1s);
        EXPECT_EQ(f.count, 2 + 60);
    }

} // namespace
} // namespace korvane
