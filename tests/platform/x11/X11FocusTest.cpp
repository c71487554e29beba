#include "platform/x11/X11Focus.h"

#include "X11Desk.h"
#include "platform/x11/X11OutsideClicks.h"
#include "platform/x11/X11RawInput.h"

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
        X11Focus focus { connection, loop, windowsOf(toolkit.get()) };

        /// The panel has the keyboard, and the editor had it before.
        bool panelHasTakenIt()
        {
            if (!bringToFront(editor))
                return false;
            panel.map();
            return focus.takeKeyboard(panel.id(), XCB_CURRENT_TIME);
        }
        void makeActive(const TestWindow& window)
        {
            const auto active = window.id();
            xcb_change_property(otherProgram.get(), XCB_PROP_MODE_REPLACE, otherProgram.root(),
                otherProgram.atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW, 32, 1, &active);
            otherProgram.sync();
            deliverEvents();
        }
        /// Whether nobody holds the pointer.
        bool isPointerFree()
        {
            const X11Reply<xcb_grab_pointer_reply_t> grab(xcb_grab_pointer_reply(otherProgram.get(),
                xcb_grab_pointer(otherProgram.get(), 0, otherProgram.root(), 0, XCB_GRAB_MODE_ASYNC,
                    XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME),
                nullptr));
            xcb_ungrab_pointer(otherProgram.get(), XCB_CURRENT_TIME);
            otherProgram.sync();
            return grab && grab->status == XCB_GRAB_STATUS_SUCCESS;
        }
        /// Gives the keyboard to the window as window managers do while their key for it is held.
        void goByKeyTo(const TestWindow& window)
        {
            const X11Reply<xcb_grab_keyboard_reply_t> grab(
                xcb_grab_keyboard_reply(otherProgram.get(),
                    xcb_grab_keyboard(otherProgram.get(), 0, otherProgram.root(), XCB_CURRENT_TIME,
                        XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                    nullptr));
            EXPECT_TRUE(grab && grab->status == XCB_GRAB_STATUS_SUCCESS);
            deliverEvents();
            xcb_set_input_focus(
                otherProgram.get(), XCB_INPUT_FOCUS_PARENT, window.id(), XCB_CURRENT_TIME);
            otherProgram.sync();
            deliverEvents();
            xcb_ungrab_keyboard(otherProgram.get(), XCB_CURRENT_TIME);
            otherProgram.sync();
            deliverEvents();
        }
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
        ASSERT_TRUE(f.panelHasTakenIt());

        f.focus.giveBackKeyboard();

        EXPECT_TRUE(f.editor.hasKeyboard());
    }

    struct ClickFixture : FocusFixture {
        X11RawInput rawInput { connection };
        ButtonPress press;
        Connection pressed = rawInput.buttonPressed.connect([this](const ButtonPress& told) {
            press = told;
            focus.pressedAt(told.time);
        });

        /// A button was pressed some time after what had happened before.
        bool hasPressed()
        {
            rawInput.tellButtons(true);
            deliverEvents();
            input.movePointer(150, 150); // over the panel, where the real manager leaves it alone
            const auto before = serverTime();
            return waitUntil([&] {
                input.click(1);
                deliverEvents();
                return press.time > before + 1;
            });
        }
        xcb_timestamp_t serverTime()
        {
            press = {};
            input.click(1);
            waitUntil([this] { return press.button == 1; });
            return press.time;
        }
        void giveAsOfThePress(const TestWindow& window)
        {
            xcb_set_input_focus(
                otherProgram.get(), XCB_INPUT_FOCUS_PARENT, window.id(), press.time);
            otherProgram.sync();
            deliverEvents();
        }
    };

    TEST(X11FocusTest, AManagerThatAnswersAClickLaterThanWeGivesTheKeyboardToWhatWasClicked)
    {
        ClickFixture f;
        TestWindow clicked(f.otherProgram);
        ASSERT_TRUE(f.bringToFront(clicked));
        ASSERT_TRUE(f.panelHasTakenIt());
        ASSERT_TRUE(f.hasPressed());

        f.focus.giveBackKeyboard();
        EXPECT_TRUE(f.editor.hasKeyboard());
        f.giveAsOfThePress(clicked);

        EXPECT_TRUE(clicked.hasKeyboard());
    }

    TEST(X11FocusTest, AManagerThatAnswersAClickSoonerThanWeGivesTheKeyboardToWhatWasClicked)
    {
        ClickFixture f;
        TestWindow clicked(f.otherProgram);
        ASSERT_TRUE(f.bringToFront(clicked));
        ASSERT_TRUE(f.panelHasTakenIt());
        ASSERT_TRUE(f.hasPressed());

        f.giveAsOfThePress(clicked);
        EXPECT_TRUE(f.panel.hasKeyboard()); // it is still open
        f.focus.giveBackKeyboard();

        EXPECT_TRUE(clicked.hasKeyboard());
    }

    TEST(X11FocusTest, WhatAnotherWindowTakesByItselfIsTakenBack)
    {
        FocusFixture f;
        ASSERT_TRUE(f.panelHasTakenIt());
        int left = 0;
        const auto listening = f.focus.left.connect([&left] { ++left; });

        for (int time = 0; time < 3; ++time) {
            xcb_set_input_focus(
                f.otherProgram.get(), XCB_INPUT_FOCUS_PARENT, f.editor.id(), XCB_CURRENT_TIME);
            f.otherProgram.sync();
            f.deliverEvents();
            EXPECT_TRUE(f.panel.hasKeyboard());
        }

        EXPECT_EQ(left, 0);
        f.focus.giveBackKeyboard();
        EXPECT_TRUE(f.editor.hasKeyboard());
    }

    TEST(X11FocusTest, ItIsGivenBackToTheWindowThatTheManagerMeantToHaveItLast)
    {
        FocusFixture f;
        TestWindow other(f.otherProgram);
        ASSERT_TRUE(f.bringToFront(other));
        ASSERT_TRUE(f.panelHasTakenIt());

        // As a manager does whose focus follows the pointer.
        xcb_set_input_focus(
            f.otherProgram.get(), XCB_INPUT_FOCUS_PARENT, other.id(), XCB_CURRENT_TIME);
        f.otherProgram.sync();
        f.deliverEvents();
        EXPECT_TRUE(f.panel.hasKeyboard());
        f.focus.giveBackKeyboard();

        EXPECT_TRUE(other.hasKeyboard());
    }

    TEST(X11FocusTest, AUserWhoGoesToAnotherWindowByAKeyIsLetGo)
    {
        FocusFixture f;
        ASSERT_TRUE(f.panelHasTakenIt());
        int left = 0;
        const auto listening = f.focus.left.connect([&left] { ++left; });

        f.goByKeyTo(f.editor);

        EXPECT_EQ(left, 1);
        EXPECT_TRUE(waitUntil([&] { return f.editor.hasKeyboard(); }));
    }

    TEST(X11FocusTest, AKeyboardGivenBackIsNotTakenAgain)
    {
        FocusFixture f;
        ASSERT_TRUE(f.panelHasTakenIt());

        f.focus.giveBackKeyboard();
        f.deliverEvents();

        EXPECT_TRUE(f.editor.hasKeyboard());
    }

    TEST(X11FocusTest, AnotherWindowOfOursMayHaveIt)
    {
        FocusFixture f;
        ASSERT_TRUE(f.bringToFront(f.editor));
        f.panel.map();
        TestWindow alert(f.toolkit, TestWindow::Kind::overrideRedirect);
        alert.map();
        ASSERT_TRUE(f.focus.takeKeyboard(f.panel.id(), XCB_CURRENT_TIME));

        xcb_set_input_focus(f.toolkit.get(), XCB_INPUT_FOCUS_PARENT, alert.id(), XCB_CURRENT_TIME);
        f.toolkit.sync();
        f.deliverEvents();

        EXPECT_TRUE(alert.hasKeyboard());
    }

    TEST(X11FocusTest, AnotherWindowOfOursThatHasItKeepsItWhenThePanelCloses)
    {
        FocusFixture f;
        ASSERT_TRUE(f.bringToFront(f.editor));
        f.panel.map();
        TestWindow settings(f.toolkit, TestWindow::Kind::overrideRedirect);
        settings.map();
        ASSERT_TRUE(f.focus.takeKeyboard(f.panel.id(), XCB_CURRENT_TIME));
        xcb_set_input_focus(
            f.toolkit.get(), XCB_INPUT_FOCUS_PARENT, settings.id(), XCB_CURRENT_TIME);
        f.toolkit.sync();
        f.deliverEvents();

        f.focus.giveBackKeyboard();

        EXPECT_TRUE(settings.hasKeyboard());
    }

    TEST(X11FocusTest, ThePointerArrivesNowhereByThePanelsEndWhileAnotherWindowOfOursHasTheKeyboard)
    {
        FocusFixture f;
        ASSERT_TRUE(f.panelHasTakenIt());
        TestWindow settings(f.toolkit, TestWindow::Kind::overrideRedirect);
        settings.map();
        xcb_set_input_focus(
            f.toolkit.get(), XCB_INPUT_FOCUS_PARENT, settings.id(), XCB_CURRENT_TIME);
        f.toolkit.sync();
        f.deliverEvents();
        ASSERT_TRUE(waitUntil([&] { return f.isPointerFree(); }));

        f.focus.giveBackKeyboard();
        EXPECT_FALSE(f.isPointerFree());
        f.panel.unmap();

        EXPECT_TRUE(waitUntil([&] {
            f.deliverEvents();
            return f.isPointerFree();
        }));
        EXPECT_TRUE(settings.hasKeyboard());
    }

    TEST(X11FocusTest, AnotherWindowOfOursThatIsToHaveItGetsItWhenTheManagerMakesItTheActiveOne)
    {
        FocusFixture f;
        ASSERT_TRUE(f.panelHasTakenIt());
        TestWindow settings(f.toolkit, TestWindow::Kind::overrideRedirect);
        settings.map();

        f.focus.passTo(settings.id());

        // All that a manager does whose time is older than the panel's. The one that runs here may say at
        // the same moment what it takes for the active window.
        EXPECT_TRUE(waitUntil([&] {
            f.makeActive(settings);
            return settings.hasKeyboard();
        }));
    }

    TEST(X11FocusTest, WhatComesRightAfterTheUserHasGoneToAnotherWindowOfOursDoesNotTakeItBack)
    {
        FocusFixture f;
        ASSERT_TRUE(f.panelHasTakenIt());
        TestWindow settings(f.toolkit, TestWindow::Kind::overrideRedirect);
        settings.map();
        f.focus.passTo(settings.id());
        ASSERT_TRUE(waitUntil([&] {
            f.makeActive(settings);
            return settings.hasKeyboard();
        }));

        EXPECT_TRUE(f.focus.takeKeyboard(f.panel.id(), XCB_CURRENT_TIME));

        EXPECT_TRUE(settings.hasKeyboard());
        EXPECT_TRUE(waitUntil([&] {
            return f.focus.takeKeyboard(f.panel.id(), XCB_CURRENT_TIME) && f.panel.hasKeyboard();
        })) << "a user who comes back later has it";
    }

    TEST(X11FocusTest, AnotherWindowOfOursThatIsActiveForAnotherReasonLeavesItToThePanel)
    {
        FocusFixture f;
        ASSERT_TRUE(f.panelHasTakenIt());
        TestWindow alert(f.toolkit, TestWindow::Kind::overrideRedirect);
        alert.map();

        f.makeActive(alert);

        EXPECT_TRUE(f.panel.hasKeyboard());
    }

    TEST(X11FocusTest, TakingItTwiceForgetsNothing)
    {
        FocusFixture f;
        ASSERT_TRUE(f.panelHasTakenIt());
        ASSERT_TRUE(f.focus.takeKeyboard(f.panel.id(), XCB_CURRENT_TIME));

        f.focus.giveBackKeyboard();

        EXPECT_TRUE(f.editor.hasKeyboard());
    }

    TEST(X11FocusTest, ItGoesBackAfterThePanelWasHiddenToo)
    {
        FocusFixture f;
        ASSERT_TRUE(f.panelHasTakenIt());
        f.panel.unmap();

        f.focus.giveBackKeyboard();

        EXPECT_TRUE(waitUntil([&] { return f.editor.hasKeyboard(); }));
    }

    TEST(X11FocusTest, WhatSomeoneElseHasTakenMeanwhileIsLeftAlone)
    {
        FocusFixture f;
        TestWindow other(f.otherProgram);
        ASSERT_TRUE(f.bringToFront(other));
        ASSERT_TRUE(f.panelHasTakenIt());
        f.goByKeyTo(other);

        f.focus.giveBackKeyboard();

        EXPECT_TRUE(waitUntil([&] { return other.hasKeyboard(); }));
    }

    TEST(X11FocusTest, WhenTheHolderIsGoneThePanelDoesNotKeepIt)
    {
        FocusFixture f;
        ASSERT_TRUE(f.panelHasTakenIt());
        f.editor.destroy();

        f.focus.giveBackKeyboard();

        EXPECT_FALSE(f.panel.hasKeyboard());
    }

    TEST(X11FocusTest, WhenTheHolderIsGoneTheWindowThatTheManagerCallsActiveGetsIt)
    {
        FocusFixture f;
        TestWindow other(f.otherProgram);
        ASSERT_TRUE(f.bringToFront(other));
        ASSERT_TRUE(f.panelHasTakenIt());
        f.editor.destroy();
        f.otherProgram.sync();
        // As managers do that believe the window to have the keyboard already.
        const xcb_window_t active = other.id();
        const auto sayActive = [&] {
            xcb_change_property(f.otherProgram.get(), XCB_PROP_MODE_REPLACE, f.otherProgram.root(),
                f.otherProgram.atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW, 32, 1, &active);
            f.otherProgram.sync();
            return f.otherProgram.activeWindow() == active;
        };
        ASSERT_TRUE(waitUntil(sayActive));

        f.focus.giveBackKeyboard();

        EXPECT_TRUE(waitUntil([&] { return other.hasKeyboard(); }));
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
