#include "platform/wayland/qt/OtherProgram.h"
#include "platform/wayland/qt/PanelDesk.h"
#include "platform/wayland/qt/TestSeat.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <linux/input-event-codes.h>

namespace korvane {
namespace {

    using test::seat;
    using test::sway;
    using test::waitUntil;

    /// Has a second output on the right of the first. Sway cannot take one away again.
    bool showSecondOutput(const QString& scale = QStringLiteral("1"))
    {
        if (QGuiApplication::screens().size() == 1 && !sway(QStringLiteral("create_output")))
            return false;
        const auto settings
            = QStringLiteral("output HEADLESS-2 resolution 1024x768 position 1280 0 scale ")
            + scale;
        return sway(settings) && waitUntil([&scale] {
            const auto screens = QGuiApplication::screens();
            return screens.size() == 2 && screens.back()->geometry().topLeft() == QPoint(1280, 0)
                && screens.back()->geometry().width() * scale.toInt() == 1024;
        });
    }

    class LayerOutputsTest : public testing::Test {
    protected:
        void SetUp() override
        {
            if (!test::isOn("sway"))
                GTEST_SKIP() << "outputs are made on sway";
        }
        void TearDown() override
        {
            if (test::isOn("sway"))
                sway("focus output HEADLESS-1");
        }
    };

    TEST_F(LayerOutputsTest, ThePanelIsOnTheOutputThatTheUserWorksOn)
    {
        ASSERT_TRUE(showSecondOutput());
        test::PanelDesk desk;
        desk.copyNumbered(3);

        ASSERT_TRUE(sway("focus output HEADLESS-2"));
        ASSERT_TRUE(desk.open());
        EXPECT_EQ(desk.ground().geometry(), QRect(1280, 0, 1024, 768));
        EXPECT_EQ(desk.panel().visibleFrame(), QRect(1024 - 360 - 8, 0, 360, 320));
        desk.shell().hidePanel();
        ASSERT_TRUE(sway("focus output HEADLESS-1"));
        ASSERT_TRUE(desk.open());

        EXPECT_EQ(desk.ground().geometry(), QRect(0, 0, 1280, 800));
        EXPECT_TRUE(test::PanelDesk::isConnected());
    }

    TEST_F(LayerOutputsTest, AClickOnTheOtherOutputClosesIt)
    {
        ASSERT_TRUE(showSecondOutput());
        test::PanelDesk desk;

        for (const auto* const output : { "HEADLESS-1", "HEADLESS-2" }) {
            ASSERT_TRUE(sway(QStringLiteral("focus output ") + output));
            ASSERT_TRUE(desk.open());
            const bool isLeft = desk.ground().x() == 0;
            seat().moveTo({ isLeft ? 1280 + 500 : 500, 400 });
            // The shield may be there a moment later than the panel.
            EXPECT_TRUE(waitUntil([&] {
                seat().press();
                seat().release();
                return !desk.shell().isPanelVisible();
            })) << output;
        }

        EXPECT_TRUE(test::PanelDesk::isConnected());
    }

    TEST_F(LayerOutputsTest, EachOutputHasItsScale)
    {
        ASSERT_TRUE(showSecondOutput("2"));
        test::PanelDesk desk;
        desk.copyNumbered(3);
        seat().moveTo({ 1290, 370 }); // its arrow would be on the picture
        ASSERT_TRUE(sway("focus output HEADLESS-2"));

        ASSERT_TRUE(desk.open());

        EXPECT_EQ(desk.ground().size(), QSize(512, 384));
        EXPECT_EQ(desk.panel().visibleFrame(), QRect(512 - 360 - 8, 0, 360, 320));
        EXPECT_EQ(desk.ground().devicePixelRatioF(), 2);
        const QRect panel = desk.panel().visibleFrame().adjusted(12, 12, -12, -12);
        EXPECT_TRUE(waitUntil([&] {
            return test::screenshot("HEADLESS-2").copy({ panel.topLeft() * 2, panel.size() * 2 })
                == desk.ground().grab(panel).toImage().convertToFormat(QImage::Format_RGB32);
        }));
    }

} // namespace
} // namespace korvane
