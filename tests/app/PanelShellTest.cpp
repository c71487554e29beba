#include "app/PanelShell.h"

#include "support/AppFixture.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using namespace std::chrono_literals;

    struct ShellFixture : test::AppFixture {
        ShellFixture() { launch(); }
        PanelShell& shell() { return app->shell(); }
    };

    TEST(PanelShellTest, ThePanelIsBuiltAfterLaunchAndNotShown)
    {
        ShellFixture f;

        ASSERT_NE(f.panel, nullptr);
        EXPECT_EQ(f.panel->shows, 0);
    }

    TEST(PanelShellTest, ThePanelStandsUnderTheStatusItem)
    {
        ShellFixture f;

        f.shell().showPanel();

        EXPECT_EQ(f.panel->place, (Rect { 1012 - 180, 874 - 250, 360, 250 }));
    }

    TEST(PanelShellTest, AStatusItemThatIsFoundOnlyNowHasTheOpenPanelPlacedAnew)
    {
        ShellFixture f;
        f.screens.found();
        EXPECT_NE(f.panel->place.width, 360); // it is placed when it is opened
        f.shell().showPanel();

        f.screens.statusItem.x = 600;
        f.screens.found();

        EXPECT_EQ(f.panel->place, (Rect { 612 - 180, 874 - 250, 360, 250 }));
        EXPECT_EQ(f.panel->shows, 1);
    }

    TEST(PanelShellTest, TheAlignmentIsReadAtEachOpening)
    {
        ShellFixture f;
        f.shell().togglePanel();
        f.shell().togglePanel();

        f.preferences.set(keys::panelAlignment, std::string("left"));
        f.shell().togglePanel();

        EXPECT_EQ(f.panel->place.right(), 1024);
    }

    TEST(PanelShellTest, ToggleShowsAndHides)
    {
        ShellFixture f;

        f.shell().togglePanel();
        EXPECT_TRUE(f.panel->isShown);
        f.shell().togglePanel();
        EXPECT_FALSE(f.panel->isShown);
    }

    TEST(PanelShellTest, AClickOutsideClosesThePanelAndItsPreview)
    {
        ShellFixture f;
        f.copy("text");
        f.shell().showPanel();
        f.press(keycodes::space);

        f.outsideClicks.click();

        EXPECT_FALSE(f.panel->isShown);
        EXPECT_FALSE(f.preview->isShown);
    }

    TEST(PanelShellTest, BesideAPanelThatIsClosedThereIsNoPreview)
    {
        ShellFixture f;
        f.copy("text");

        f.shell().showPreview(f.app->clipStore().clips()[0], 200);

        EXPECT_FALSE(f.shell().isPreviewVisible());
    }

    TEST(PanelShellTest, ClicksAreWatchedExactlyWhileThePanelIsOpen)
    {
        ShellFixture f;
        EXPECT_FALSE(f.outsideClicks.isWatched);

        f.shell().showPanel();
        EXPECT_TRUE(f.outsideClicks.isWatched);
        f.shell().hidePanel();
        EXPECT_FALSE(f.outsideClicks.isWatched);
    }

    TEST(PanelShellTest, TheClickThatClosedThePanelFromOutsideDoesNotOpenItAgain)
    {
        ShellFixture f;
        f.shell().showPanel();

        f.outsideClicks.click();
        f.loop.advance(100ms);
        f.statusItem.clicked();
        EXPECT_FALSE(f.panel->isShown);

        f.loop.advance(300ms);
        f.statusItem.clicked();
        EXPECT_TRUE(f.panel->isShown);
    }

    TEST(PanelShellTest, ShowingAnOpenPanelOnlyGivesItTheKeyboardAgain)
    {
        ShellFixture f;
        f.copy("text");
        f.shell().showPanel();
        f.app->clipStore().panel().panelSearch.set("te");

        f.shell().showPanel();

        EXPECT_EQ(f.panel->shows, 2);
        EXPECT_EQ(f.app->clipStore().panel().panelSearch.value(), "te");
        EXPECT_EQ(f.app->clipStore().panel().panelOpenCount.value(), 1);
    }

    TEST(PanelShellTest, OpeningSelectsTheClipThatIsOnTheClipboard)
    {
        ShellFixture f;
        f.copy("older");
        f.copy("newer");
        f.shell().showPanel();
        f.press(keycodes::downArrow);
        f.press(keycodes::escape);

        f.shell().showPanel();

        EXPECT_EQ(
            f.app->clipStore().panel().selectedClipID.value(), f.app->clipStore().clips()[1].id);
    }

    TEST(PanelShellTest, OpeningSelectsTheFirstClipWhenTheClipboardHoldsNone)
    {
        ShellFixture f;
        f.copy("older");
        f.copy("newer");
        f.workspace.bringToFront("org.keepassx.keepassxc", "KeePassXC");
        f.copy("older"); // a password that happens to be known: not looked at

        f.shell().showPanel();
        f.loop.turn();

        EXPECT_EQ(
            f.app->clipStore().panel().selectedClipID.value(), f.app->clipStore().clips()[0].id);
        EXPECT_EQ(f.pasteboard.reads, 2);
    }

    TEST(PanelShellTest, WhatWasOnTheClipboardBeforeTheStartIsFoundInTheHistory)
    {
        test::AppFixture f;
        f.launch();
        f.copy("older");
        f.copy("newer");
        f.pasteboard.copyText("older");
        f.app.reset();
        f.launch();

        f.app->shell().showPanel();
        f.loop.turn();

        EXPECT_EQ(
            f.app->clipStore().panel().selectedClipID.value(), f.app->clipStore().clips()[1].id);
    }

    TEST(PanelShellTest, ASlowClipboardDoesNotTakeASelectionThatTheUserHasMoved)
    {
        test::AppFixture f;
        f.launch();
        f.copy("one");
        f.copy("two");
        f.copy("three");
        f.pasteboard.copyText("one");
        f.app.reset();
        f.launch();
        f.pasteboard.holdsAnswers = true;
        f.app->shell().showPanel();
        f.press(keycodes::downArrow);

        f.pasteboard.answerOldest();

        EXPECT_EQ(
            f.app->clipStore().panel().selectedClipID.value(), f.app->clipStore().clips()[1].id);
    }

    TEST(PanelShellTest, PreferencesChosenTwiceInTheStatusMenuOpenAndCloseTheSettingsWindow)
    {
        ShellFixture f;

        f.statusItem.choose("Preferences...");
        ASSERT_NE(f.settings, nullptr);
        EXPECT_TRUE(f.settings->isShown);
        f.statusItem.choose("Preferences...");
        EXPECT_FALSE(f.settings->isShown);
    }

    TEST(PanelShellTest, TheSettingsWindowIsMadeOnceWhenItIsFirstWanted)
    {
        ShellFixture f;
        EXPECT_EQ(f.settingsMade, 0);

        f.shell().openPreferences();
        f.settingsTab->select("data");
        f.settings->hide();
        f.shell().openPreferences();

        EXPECT_EQ(f.settingsMade, 1);
        EXPECT_EQ(f.settingsTab->selection.value(), SettingsTab::data);
    }

    TEST(PanelShellTest, WithoutThePanelTheSettingsWindowStandsInTheMiddleOfTheScreen)
    {
        ShellFixture f;

        f.shell().openPreferences();

        EXPECT_EQ(f.settings->place, (Rect { 460, 227, 520, 420 }));
    }

    TEST(PanelShellTest, TheSettingsWindowIsNoLargerThanTheScreen)
    {
        ShellFixture f;
        f.screens.visible = { 0, 0, 400, 287 };

        f.shell().openPreferences();

        EXPECT_EQ(f.settings->place, (Rect { 8, 8, 384, 271 }));
    }

    TEST(PanelShellTest, TheSettingsWindowStandsBesideTheOpenPanel)
    {
        ShellFixture f;
        f.shell().showPanel();

        f.shell().openPreferences();

        EXPECT_EQ(f.settings->place.right(), f.panel->place.left() - 8);
        EXPECT_EQ(f.settings->place.top(), f.screens.visible.top() - 8);
        EXPECT_TRUE(f.shell().isPanelVisible());
    }

    TEST(PanelShellTest, TheSettingsArePlacedAnewWhenTheDesktopHasFramedThem)
    {
        ShellFixture f;
        f.shell().showPanel();
        f.shell().openPreferences();
        f.settings->place.width += 4;
        f.settings->place.height += 26;

        f.settings->framed();

        EXPECT_EQ(f.settings->place.right(), f.panel->place.left() - 8);
        EXPECT_EQ(f.settings->place.top(), f.screens.visible.top() - 8);
        EXPECT_EQ(f.settings->place.width, 524);
    }

    TEST(PanelShellTest, WithThePanelNearTheLeftEdgeTheSettingsWindowStandsOnItsRight)
    {
        ShellFixture f;
        f.screens.statusItem = { 40, 874, 24, 26 };
        f.shell().showPanel();

        f.shell().openPreferences();

        EXPECT_EQ(f.settings->place.left(), f.panel->place.right() + 8);
    }

    TEST(PanelShellTest, ThePanelBringsAnOpenSettingsWindowBackToThePlaceOfNow)
    {
        ShellFixture f;
        f.shell().openPreferences();
        f.shell().showPanel();

        f.shell().openPreferences();

        EXPECT_TRUE(f.settings->isShown);
        EXPECT_EQ(f.settings->hides, 1);
        EXPECT_EQ(f.settings->shows, 2);
        EXPECT_EQ(f.settings->place.right(), f.panel->place.left() - 8);
    }

} // namespace
} // namespace korvane
