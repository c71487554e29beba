#include "platform/x11/X11OutsideClicks.h"

#include "X11Desk.h"
#include "platform/x11/X11RawInput.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>

namespace korvane {
namespace {

    using test::TestClient;
    using test::TestWindow;

    struct ClicksFixture : test::X11Desk {
        TestClient toolkit; // the connection that our windows are made on
        TestWindow panel { toolkit, TestWindow::Kind::overrideRedirect };
        X11RawInput rawInput { connection };
        X11OutsideClicks clicks { connection, rawInput, windowsOf(toolkit.get()) };
        int pressed = 0;
        Connection connectionOfPressed = clicks.pressed.connect([this] { ++pressed; });

        // Takes the clicks beside the panel: on the bare screen some of them open a menu of the window
        // manager's, which holds the pointer and the keyboard for as long as it likes.
        TestWindow ground { otherProgram, TestWindow::Kind::overrideRedirect };

        ClicksFixture()
        {
            const std::uint32_t buttons = XCB_EVENT_MASK_BUTTON_PRESS;
            xcb_change_window_attributes(
                otherProgram.get(), ground.id(), XCB_CW_EVENT_MASK, &buttons);
            ground.place(0, 0, 1440, 900);
            ground.map();
            panel.place(300, 300, 200, 200);
            panel.map();
        }
        /// Watches, and the server knows of it when this returns.
        void watch()
        {
            clicks.watch();
            deliverEvents();
        }
        void clickAt(int x, int y, std::uint8_t button = 1)
        {
            input.movePointer(x, y);
            input.click(button);
            deliverEvents();
        }
    };

    TEST(X11OutsideClicksTest, AClickBesideOurWindowsIsTold)
    {
        ClicksFixture f;
        f.watch();

        f.clickAt(50, 700);

        EXPECT_EQ(f.pressed, 1);
    }

    TEST(X11OutsideClicksTest, AClickIntoOurWindowIsNot)
    {
        ClicksFixture f;
        f.watch();

        f.clickAt(400, 400);

        EXPECT_EQ(f.pressed, 0);
    }

    TEST(X11OutsideClicksTest, TheRightButtonCountsAndTheMiddleOneAndTheWheelDoNot)
    {
        ClicksFixture f;
        f.watch();

        for (const auto button : std::to_array<std::uint8_t>({ 2, 4, 5 }))
            f.clickAt(50, 700, button);
        EXPECT_EQ(f.pressed, 0);
        f.clickAt(50, 700, 3);
        EXPECT_EQ(f.pressed, 1);
    }

    TEST(X11OutsideClicksTest, AWindowOfOursWithinAnotherProgramsIsOurs)
    {
        ClicksFixture f;
        TestWindow tray(f.otherProgram, TestWindow::Kind::overrideRedirect);
        tray.place(800, 100, 300, 100);
        tray.map();
        TestWindow icon(f.toolkit, TestWindow::Kind::overrideRedirect);
        icon.place(0, 0, 24, 24);
        xcb_reparent_window(f.toolkit.get(), icon.id(), tray.id(), 10, 10);
        icon.map();
        f.watch();

        f.clickAt(820, 120);
        EXPECT_EQ(f.pressed, 0);
        f.clickAt(1000, 150);
        EXPECT_EQ(f.pressed, 1);
    }

    TEST(X11OutsideClicksTest, NothingIsToldUnlessItIsWatched)
    {
        ClicksFixture f;

        f.clickAt(50, 700);
        EXPECT_EQ(f.pressed, 0);
        f.watch();
        f.clicks.unwatch();
        f.deliverEvents();
        f.clickAt(50, 700);
        EXPECT_EQ(f.pressed, 0);
    }

    TEST(X11OutsideClicksTest, WatchingTwiceTellsOnce)
    {
        ClicksFixture f;
        f.watch();
        f.watch();

        f.clickAt(50, 700);

        EXPECT_EQ(f.pressed, 1);
    }

    TEST(X11OutsideClicksTest, TheClickReachesTheWindowThatItIsFor)
    {
        ClicksFixture f;
        TestWindow other(f.otherProgram, TestWindow::Kind::overrideRedirect);
        const std::uint32_t mask = XCB_EVENT_MASK_BUTTON_PRESS;
        xcb_change_window_attributes(f.otherProgram.get(), other.id(), XCB_CW_EVENT_MASK, &mask);
        other.place(700, 500, 100, 100);
        other.map();
        f.watch();

        f.clickAt(750, 550);

        f.otherProgram.sync();
        bool hasArrived = false;
        while (const auto event = X11Event(xcb_poll_for_event(f.otherProgram.get())))
            hasArrived = hasArrived || (event->response_type & 0x7F) == XCB_BUTTON_PRESS;
        EXPECT_TRUE(hasArrived);
        EXPECT_EQ(f.pressed, 1);
    }

    TEST(X11OutsideClicksTest, ClicksAreToldWhileAnotherProgramHoldsThePointer)
    {
        ClicksFixture f;
        f.watch();
        ASSERT_TRUE(f.holdPointer());

        f.clickAt(50, 700);

        EXPECT_EQ(f.pressed, 1);
    }

    TEST(X11OutsideClicksTest, WithoutAToolkitsConnectionNoWindowIsOurs)
    {
        EXPECT_FALSE(windowsOf(nullptr)(1));
    }

} // namespace
} // namespace korvane
