#include "platform/x11/X11Monitors.h"

#include "PrintPixelRect.h"
#include "X11Desk.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using test::TestWindow;
    using test::waitUntil;

    struct MonitorsFixture : test::X11Desk {
        X11Monitors monitors { connection };
        PixelRect before = monitors.areaAt(0, 0).visible;
        PixelRect screen = monitors.areaAt(0, 0).monitor;
    };

    /// A bar as panels make it, at the bottom of the screen.
    struct Bar : TestWindow {
        Bar(test::TestClient& client, const PixelRect& screen, std::uint32_t depth)
            : TestWindow(client)
        {
            setNumbers("_NET_WM_WINDOW_TYPE", { client.atom("_NET_WM_WINDOW_TYPE_DOCK") }, "ATOM");
            const auto width = static_cast<std::uint32_t>(screen.width);
            setNumbers("_NET_WM_STRUT_PARTIAL", { 0, 0, 0, depth, 0, 0, 0, 0, 0, 0, 0, width - 1 });
            place(0, screen.bottom() - static_cast<int>(depth), screen.width,
                static_cast<int>(depth));
        }
    };

    /// Splits the screen into two monitors side by side for as long as it lives.
    struct TwoMonitors {
        bool areSet
            = test::run("xrandr", { "--setmonitor", "left", "720/190x900/240+0+0", "screen" })
            && test::run("xrandr", { "--setmonitor", "right", "720/190x900/240+720+0", "none" });

        ~TwoMonitors()
        {
            test::run("xrandr", { "--delmonitor", "left" });
            test::run("xrandr", { "--delmonitor", "right" });
        }
    };

    TEST(X11MonitorsTest, TheMonitorIsTheScreen)
    {
        MonitorsFixture f;

        EXPECT_EQ(f.screen, (PixelRect { 0, 0, 1440, 900 }));
    }

    TEST(X11MonitorsTest, ABarsRoomIsTakenOff)
    {
        MonitorsFixture f;
        Bar bar(f.otherProgram, f.screen, 40);
        bar.map();

        EXPECT_TRUE(waitUntil(
            [&] { return f.monitors.areaAt(10, 10).visible.height == f.before.height - 40; }));
        EXPECT_EQ(f.monitors.areaAt(10, 10).monitor, f.screen);
    }

    TEST(X11MonitorsTest, ABarThatIsHiddenTakesNothing)
    {
        MonitorsFixture f;
        Bar bar(f.otherProgram, f.screen, 40);
        bar.map();
        ASSERT_TRUE(waitUntil([&] { return f.monitors.areaAt(10, 10).visible != f.before; }));

        bar.unmap();

        EXPECT_TRUE(waitUntil([&] { return f.monitors.areaAt(10, 10).visible == f.before; }));
    }

    TEST(X11MonitorsTest, ABarOfTheOlderKindIsKnownToo)
    {
        MonitorsFixture f;
        TestWindow bar(f.otherProgram, TestWindow::Kind::overrideRedirect);
        bar.setNumbers("_NET_WM_STRUT", { 33, 0, 0, 0 });
        bar.map();

        EXPECT_EQ(f.monitors.areaAt(10, 10).visible.x, 33);
    }

    TEST(X11MonitorsTest, AStrutOfTheWrongShapeIsPassedOver)
    {
        MonitorsFixture f;
        TestWindow bar(f.otherProgram, TestWindow::Kind::overrideRedirect);
        bar.setNumbers("_NET_WM_STRUT_PARTIAL", { 33 });
        bar.setText("_NET_WM_STRUT", "thirty-three pixels", "CARDINAL");
        bar.map();

        EXPECT_EQ(f.monitors.areaAt(10, 10).visible, f.before);
    }

    TEST(X11MonitorsTest, ABarDeepInTheTreeIsFound)
    {
        MonitorsFixture f;
        TestWindow frame(f.otherProgram, TestWindow::Kind::overrideRedirect);
        TestWindow inner(f.otherProgram, TestWindow::Kind::overrideRedirect);
        TestWindow bar(f.otherProgram, TestWindow::Kind::overrideRedirect);
        xcb_reparent_window(f.otherProgram.get(), inner.id(), frame.id(), 0, 0);
        xcb_reparent_window(f.otherProgram.get(), bar.id(), inner.id(), 0, 0);
        bar.setNumbers("_NET_WM_STRUT", { 0, 44, 0, 0 });
        for (auto* window : { &bar, &inner, &frame })
            window->map();

        EXPECT_EQ(f.monitors.areaAt(10, 10).visible.right(), f.screen.right() - 44);
    }

    TEST(X11MonitorsTest, OfTwoMonitorsTheOneAtThePointIsMeant)
    {
        MonitorsFixture f;
        const TwoMonitors two;
        ASSERT_TRUE(two.areSet);

        EXPECT_EQ(f.monitors.areaAt(10, 10).monitor, (PixelRect { 0, 0, 720, 900 }));
        EXPECT_EQ(f.monitors.areaAt(720, 10).monitor, (PixelRect { 720, 0, 720, 900 }));
    }

    TEST(X11MonitorsTest, APointBesideAllMonitorsMeansTheNearest)
    {
        MonitorsFixture f;
        const TwoMonitors two;
        ASSERT_TRUE(two.areSet);

        EXPECT_EQ(f.monitors.areaAt(5000, 10).monitor, (PixelRect { 720, 0, 720, 900 }));
        EXPECT_EQ(f.monitors.areaAt(-5, -5).monitor, (PixelRect { 0, 0, 720, 900 }));
    }

    TEST(X11MonitorsTest, ABarOnOneMonitorLeavesTheOtherAlone)
    {
        MonitorsFixture f;
        const TwoMonitors two;
        ASSERT_TRUE(two.areSet);
        TestWindow bar(f.otherProgram, TestWindow::Kind::overrideRedirect);
        bar.setNumbers("_NET_WM_STRUT_PARTIAL", { 0, 0, 0, 50, 0, 0, 0, 0, 0, 0, 720, 1439 });
        bar.map();

        EXPECT_EQ(f.monitors.areaAt(10, 10).visible.bottom(), f.before.bottom());
        EXPECT_EQ(f.monitors.areaAt(730, 10).visible.bottom(), 850);
    }

    TEST(X11MonitorsTest, WithoutAServerThereIsNoRoom)
    {
        const auto display = qgetenv("DISPLAY");
        qputenv("DISPLAY", ":4000");
        QtMainLoop loop;
        X11Connection connection(loop);
        qputenv("DISPLAY", display);
        X11Monitors monitors(connection);

        EXPECT_EQ(monitors.areaAt(0, 0).visible, PixelRect {});
    }

} // namespace
} // namespace korvane
