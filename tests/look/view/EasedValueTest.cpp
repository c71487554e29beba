#include "look/view/EasedValue.h"

#include "support/ManualLoop.h"

#include <gtest/gtest.h>

#include <QWidget>

namespace korvane {
namespace {

    using namespace std::chrono_literals;

    struct EasedFixture {
        test::ManualLoop loop;
        int steps = 0;
        QWidget widget;
        EasedValue value { loop, widget, 0, [this] { ++steps; } };
    };

    TEST(EasedValueTest, ItArrivesAfterTheTimeAndStandsStillThen)
    {
        EasedFixture f;

        f.value.goTo(1, 200ms);
        EXPECT_EQ(f.value.value(), 0);
        f.loop.advance(100ms);
        EXPECT_GT(f.value.value(), 0.5); // easing out
        EXPECT_LT(f.value.value(), 1);
        f.loop.advance(108ms);
        EXPECT_EQ(f.value.value(), 1);

        const int steps = f.steps;
        f.loop.advance(10s);
        EXPECT_EQ(f.steps, steps);
    }

    TEST(EasedValueTest, ItTurnsBackFromWhereItIs)
    {
        EasedFixture f;
        f.value.goTo(1, 200ms);
        f.loop.advance(96ms);
        const double turned = f.value.value();

        f.value.goTo(0, 200ms);
        EXPECT_EQ(f.value.value(), turned);
        f.loop.advance(20ms);
        EXPECT_LT(f.value.value(), turned);
        EXPECT_GT(f.value.value(), 0);
        f.loop.advance(200ms);
        EXPECT_EQ(f.value.value(), 0);
    }

    TEST(EasedValueTest, TheSameTargetAgainChangesNothing)
    {
        EasedFixture f;
        f.value.goTo(0, 200ms);
        f.loop.advance(1s);
        EXPECT_EQ(f.steps, 0);

        f.value.goTo(1, 200ms);
        f.loop.advance(160ms);
        f.value.goTo(1, 200ms);
        f.loop.advance(48ms);
        EXPECT_EQ(f.value.value(), 1);
    }

} // namespace
} // namespace korvane
