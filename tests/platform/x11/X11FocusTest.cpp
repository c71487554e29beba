#include "platform/x11/X11Focus.h"

#include "X11Desk.h"
#include "platform/x11/X11OutsideClicks.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using test::TestClient;
    using test::TestWindow;
    using test::waitUntil;

    struct FocusFixture : test::X11Desk {
        TestClient toolkit; // the connection that our windows are made on
        TestWindow panel { toolkit, TestWindow::Kind::overrideRedirect };
        TestWindow editor { otherProgram };
        X11Focus focus { connection, windowsOf(toolkit.get()) };
    };

    TEST(X11FocusTest, AWindowThatTheManagerDoesNotKnowGetsTheKeyboard)
    {
        FocusFixture f;
        ASSERT_TRUE(f.bringToFront(f.editor));
        f.panel.map();

        EXPECT_TRUE(f.focus.takeKeyboard(f.panel.id(), XCB_CURRENT_TIME));

        EXPECT_TRUE(f.panel.hasKeyboard());
    }

    TEST(X11FocusTest, AWindowThatIsNotOnTheScreenCannotHaveIt)
    {
        FocusFixture f;
        ASSERT_TRUE(f.bringToFront(f.editor));

        EXPECT_FALSE(f.focus.takeKeyboard(f.panel.id(), XCB_CURRENT_TIME));

        EXPECT_TRUE(f.editor.hasKeyboard());
    }

    TEST(X11FocusTest, ATimeThatIsOutdatedDoesNotLeaveThePanelDeaf)
    {
        FocusFixture f;
        ASSERT_TRUE(f.bringToFront(f.editor));
        f.panel.map();

        EXPECT_TRUE(f.focus.takeKeyboard(f.panel.id(), 1));

        EXPECT_TRUE(f.panel.hasKeyboard());
    }

    TEST(X11FocusTest, TheKeyboardGoesBackToWhomItWasTakenFrom)
    {
        FocusFixture f;
        ASSERT_TRUE(f.bringToFront(f.editor));
        f.panel.map();
        ASSERT_TRUE(f.focus.takeKeyboard(f.panel.id(), XCB_CURRENT_TIME));

        f.focus.giveBackKeyboard();

        EXPECT_TRUE(f.editor.hasKeyboard());
    }

    TEST(X11FocusTest, TakingItTwiceForgetsNothing)
    {
        FocusFixture f;
        ASSERT_TRUE(f.bringToFront(f.editor));
        f.panel.map();
        ASSERT_TRUE(f.focus.takeKeyboard(f.panel.id(), XCB_CURRENT_TIME));
        ASSERT_TRUE(f.focus.takeKeyboard(f.panel.id(), XCB_CURRENT_TIME));

        f.focus.giveBackKeyboard();

        EXPECT_TRUE(f.editor.hasKeyboard());
    }

    TEST(X11FocusTest, ItGoesBackAfterThePanelWasHiddenToo)
    {
        FocusFixture f;
        ASSERT_TRUE(f.bringToFront(f.editor));
        f.panel.map();
        ASSERT_TRUE(f.focus.takeKeyboard(f.panel.id(), XCB_CURRENT_TIME));
        f.panel.unmap();

        f.focus.giveBackKeyboard();

        EXPECT_TRUE(waitUntil([&] { return f.editor.hasKeyboard(); }));
    }

    TEST(X11FocusTest, WhatSomeoneElseHasTakenMeanwhileIsLeftAlone)
    {
        FocusFixture f;
        TestWindow other(f.otherProgram);
        ASSERT_TRUE(f.bringToFront(f.editor));
        f.panel.map();
        ASSERT_TRUE(f.focus.takeKeyboard(f.panel.id(), XCB_CURRENT_TIME));
        ASSERT_TRUE(f.bringToFront(other));

        f.focus.giveBackKeyboard();

        EXPECT_TRUE(other.hasKeyboard());
    }

    TEST(X11FocusTest, WhenTheHolderIsGoneThePanelDoesNotKeepIt)
    {
        FocusFixture f;
        ASSERT_TRUE(f.bringToFront(f.editor));
        f.panel.map();
        ASSERT_TRUE(f.focus.takeKeyboard(f.panel.id(), XCB_CURRENT_TIME));
        f.editor.destroy();

        f.focus.giveBackKeyboard();

        EXPECT_FALSE(f.panel.hasKeyboard());
    }

    TEST(X11FocusTest, GivingBackWhatWasNeverTakenDoesNothing)
    {
        FocusFixture f;
        ASSERT_TRUE(f.bringToFront(f.editor));

        f.focus.giveBackKeyboard();

        EXPECT_TRUE(f.editor.hasKeyboard());
    }

} // namespace
} // namespace korvane
