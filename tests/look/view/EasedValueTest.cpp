#include "look/view/EasedValue.h"

#include "support/ManualLoop.h"

#include <gtest/gtest.h>

#include <QScreen>
#include <QWidget>
#include <qpa/qwindowsysteminterface.h>

#include <chrono>
#include <utility>
#include <vector>

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

    /// A screen that shows so many pictures in a second, until the end of a test.
    class ScreenRate {
    public:
        explicit ScreenRate(double rate) { set(rate); }
        ~ScreenRate() { set(m_before); }
        ScreenRate(const ScreenRate&) = delete;
        ScreenRate& operator=(const ScreenRate&) = delete;

    private:
        void set(double rate)
        {
            QWindowSystemInterface::handleScreenRefreshRateChange(m_widget.screen(), rate);
            QWindowSystemInterface::flushWindowSystemEvents();
        }

        QWidget m_widget;
        double m_before = m_widget.screen()->refreshRate();
    };

    TEST(EasedValueTest, ItTakesAStepForEachPictureOfTheScreen)
    {
        const std::vector<std::pair<double, std::chrono::milliseconds>> frames { { 30, 33ms },
            { 60, 17ms }, { 144, 7ms } };
        for (const auto& [rate, frame] : frames) {
            const ScreenRate screen(rate);
            EasedFixture f;

            f.value.goTo(1, 200ms);
            f.loop.advance(frame - 1ms);
            EXPECT_EQ(f.steps, 0) << rate;
            f.loop.advance(1ms);
            EXPECT_EQ(f.steps, 1) << rate;
            f.loop.advance(3 * frame);
            EXPECT_EQ(f.steps, 4) << rate;
        }
    }

    TEST(EasedValueTest, AScreenThatTellsAnUnlikelyRateNeitherStopsItNorKeepsTheProcessorBusy)
    {
        for (const double rate : { 2.0, 1000.0 }) {
            const ScreenRate screen(rate);
            EasedFixture f;

            f.value.goTo(1, 200ms);
            f.loop.advance(200ms + 40ms);

            EXPECT_EQ(f.value.value(), 1) << rate;
            EXPECT_GE(f.steps, 5) << rate;
            EXPECT_LE(f.steps, 50) << rate;
        }
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
