// Where the settings window stands, and how large it is.

#include "app/view/SettingsWindow.h"

#include "app/view/SettingsWindowFixture.h"
#include "settings/view/PreferencesView.h"
#include "settings/view/SettingsTabButton.h"

#include <gtest/gtest.h>

#include <QScrollArea>
#include <QScrollBar>
#include <QWindow>

#include <chrono>

namespace korvane {
namespace {

    using WindowFixture = test::SettingsWindowFixture;

    TEST(SettingsWindowPlaceTest, InASmallFrameThePagesScrollAndInALargerOneItHasItsSizeAgain)
    {
        WindowFixture f;
        const auto wanted = f.window.wantedFrame();

        f.window.setFrame({ 8, 8, 384, 271 });
        test::settle();
        const auto frame = f.window.frame();
        EXPECT_EQ(frame.width, 384);
        EXPECT_EQ(frame.height, 271);
        EXPECT_EQ(f.view().size(), f.window.widget().size());
        auto& page = dynamic_cast<QScrollArea&>(f.view().page(SettingsTab::general));
        EXPECT_GT(page.verticalScrollBar()->maximum(), 0);
        const auto& last = f.view().button(SettingsTab::about);
        EXPECT_LE(last.geometry().right(), f.view().width()) << "all pages can be chosen";
        EXPECT_EQ(f.window.wantedFrame().width, wanted.width);
        EXPECT_EQ(f.window.wantedFrame().height, wanted.height);

        f.window.setFrame({ 8, 8, 1000, 1000 });
        EXPECT_EQ(f.window.widget().size(), QSize(520, 62 + 420));
    }

    TEST(SettingsWindowPlaceTest, AFrameMovesItAndLeavesItsSize)
    {
        WindowFixture f;
        const auto screen = f.screens.geometry();

        f.window.setFrame({ 40, 100, 520, 482 });
        test::settle(); // a window that is shown is moved by the desktop, which tells so

        EXPECT_EQ(f.window.widget().frameGeometry().topLeft(),
            QPoint(static_cast<int>(screen.left) + 40,
                static_cast<int>(screen.top + screen.height) - 582));
        EXPECT_EQ(f.window.frame().x, 40);
        EXPECT_EQ(f.window.frame().top(), 582);
    }

    TEST(SettingsWindowPlaceTest, AWindowManagerThatPutsItElsewhereIsAskedAgain)
    {
        WindowFixture f;
        f.window.setFrame({ 40, 100, 520, 482 });
        test::settle();

        for (const auto& elsewhere : { QPoint(2, 20), QPoint(-2, -20) }) {
            auto* const handle = f.window.widget().windowHandle();
            f.window.setFrame({ 40, 100, 520, 482 });
            handle->setFramePosition(handle->framePosition() + elsewhere);
            // It is asked for a place that is as far off on the other side, and here that is where it goes.
            for (int look = 0; look < 8; ++look) {
                test::settle();
                f.loop.advance(std::chrono::milliseconds { 50 });
            }
            test::settle();

            EXPECT_EQ(f.window.frame().x, 40);
            EXPECT_EQ(f.window.frame().top(), 582);
        }
    }

    TEST(SettingsWindowPlaceTest, AWindowThatTheUserMovesStaysThere)
    {
        WindowFixture f;
        f.window.setFrame({ 40, 100, 520, 482 });
        test::settle();
        f.loop.advance(std::chrono::seconds { 1 });

        auto* const handle = f.window.widget().windowHandle();
        handle->setFramePosition(handle->framePosition() + QPoint(30, -10));
        test::settle();
        f.loop.advance(std::chrono::seconds { 1 });
        test::settle();

        EXPECT_EQ(f.window.frame().x, 70);
        EXPECT_EQ(f.window.frame().top(), 592);
    }

} // namespace
} // namespace korvane
