#include "app/AppDelegate.h"

#include "support/AppFixture.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using namespace std::chrono_literals;

    TEST(AppDelegateTest, ACopyBecomesAClipAndPlaysTheCopySound)
    {
        test::AppFixture f;
        f.preferences.set(keys::playSoundOnCopy, true);
        f.launch();

        f.copy("hello");

        EXPECT_EQ(f.clipText(0), "hello");
        EXPECT_EQ(f.app->clipStore().clips()[0].sourceApp, "Mousepad");
        EXPECT_EQ(f.sounds.played, (std::vector<std::string> { "Tink" }));
    }

    TEST(AppDelegateTest, WhatIsOnThePasteboardAtTheStartIsNotCaptured)
    {
        test::AppFixture f;
        f.pasteboard.copyText("before");

        f.launch();
        f.loop.advance(2s);

        EXPECT_EQ(f.clipCount(), 0U);
    }

    TEST(AppDelegateTest, TheTitleFollowsThePreferenceAndTheCount)
    {
        test::AppFixture f;
        f.launch();
        EXPECT_EQ(f.statusItem.title, "");

        f.preferences.set(keys::showCountInMenuBar, true);
        EXPECT_EQ(f.statusItem.title, " 0");
        f.copy("one");
        EXPECT_EQ(f.statusItem.title, " 1");
    }

    TEST(AppDelegateTest, SwitchingTheCountOffEmptiesTheTitleAtOnce)
    {
        test::AppFixture f;
        f.preferences.set(keys::showCountInMenuBar, true);
        f.launch();
        f.copy("one");
        EXPECT_EQ(f.statusItem.title, " 1");

        f.preferences.set(keys::showCountInMenuBar, false);

        EXPECT_EQ(f.statusItem.title, "");
    }

    TEST(AppDelegateTest, TheThemeIsAppliedAtTheStartAndWithEachChange)
    {
        test::AppFixture f;
        f.preferences.set(keys::theme, std::string("light"));
        f.launch();

        f.preferences.set(keys::theme, std::string("dark"));

        EXPECT_EQ(f.appearance.applied, (std::vector { Theme::light, Theme::dark }));
    }

    TEST(AppDelegateTest, AnUnknownThemeBehavesAsAuto)
    {
        test::AppFixture f;
        f.preferences.set(keys::theme, std::string("Dark"));

        f.launch();

        EXPECT_EQ(f.appearance.applied, std::vector { Theme::automatic });
    }

    TEST(AppDelegateTest, TheIconTellsOfPrivateModeOnlyOnceItIsSwitched)
    {
        test::AppFixture f;
        f.preferences.set(keys::privateModeEnabled, true);
        f.launch();
        EXPECT_EQ(f.statusItem.image, "doc.on.clipboard");
        EXPECT_EQ(f.statusItem.menu()[0].title, "✓ Private Mode");

        f.statusItem.choose("✓ Private Mode");
        EXPECT_EQ(f.statusItem.image, "doc.on.clipboard");
        EXPECT_FALSE(f.preferences.boolean(keys::privateModeEnabled));

        f.statusItem.choose("   Private Mode");
        EXPECT_EQ(f.statusItem.image, "lock.doc");
    }

    TEST(AppDelegateTest, NothingIsCapturedInPrivateModeNorWhenItEnds)
    {
        test::AppFixture f;
        f.launch();
        f.statusItem.choose("   Private Mode");
        f.copy("private");
        f.statusItem.choose("✓ Private Mode");
        f.loop.advance(1s);

        f.copy("public");

        ASSERT_EQ(f.clipCount(), 1U);
        EXPECT_EQ(f.clipText(0), "public");
    }

    TEST(AppDelegateTest, TheShortcutTogglesThePanelOnTheNextTurn)
    {
        test::AppFixture f;
        f.launch();
        EXPECT_EQ(f.grabber.held, (test::FakeHotkeyGrabber::Chord { 49, 4096 }));

        f.grabber.pressed();
        EXPECT_FALSE(f.panel->isShown);
        f.loop.turn();
        EXPECT_TRUE(f.panel->isShown);
        f.grabber.pressed();
        f.loop.turn();
        EXPECT_FALSE(f.panel->isShown);
    }

    TEST(AppDelegateTest, ATakenShortcutIsNoReasonNotToRun)
    {
        test::AppFixture f;
        f.grabber.taken.insert({ 49, 4096 });

        f.launch();

        EXPECT_TRUE(f.wasLaunched);
        EXPECT_TRUE(f.log.lines.empty());
    }

    TEST(AppDelegateTest, AnImpossibleStoredShortcutEndsTheLaunch)
    {
        test::AppFixture f;
        f.preferences.set(keys::hotkeyKeyCode, std::int64_t { 4294967296 });
        f.make();

        EXPECT_FALSE(f.app->launch());
        EXPECT_EQ(f.log.lines.size(), 1U);
    }

    TEST(AppDelegateTest, ALeftClickTogglesThePanelAlsoAfterTheMenuWasOpen)
    {
        test::AppFixture f;
        f.launch();

        f.statusItem.menu();
        f.statusItem.clicked();

        EXPECT_TRUE(f.panel->isShown);
    }

    TEST(AppDelegateTest, TheMenusOtherItemsReachTheirPorts)
    {
        test::AppFixture f;
        f.launch();

        f.statusItem.choose("Check for Updates...");
        f.statusItem.choose("More from the Makers of Korvane");
        f.statusItem.choose("Quit Korvane");

        EXPECT_EQ(f.documents.fetched,
            (std::vector<std::string> { "https://korvane.example/korvane/version.json" }));
        EXPECT_EQ(f.desktop.opened, (std::vector<std::string> { "https://korvane.example/more" }));
        EXPECT_EQ(f.quits, 1);
    }

    TEST(AppDelegateTest, APasteAnywherePlaysThePasteSound)
    {
        test::AppFixture f;
        f.preferences.set(keys::playSoundOnPaste, true);
        f.launch();

        f.keyboard.keyDown({ keycodes::v, modifiers::command, "" });

        EXPECT_EQ(f.sounds.played, (std::vector<std::string> { "Hero" }));
    }

    TEST(AppDelegateTest, WithoutAKeyListenerTheProgramRunsOnAndSaysSoOnce)
    {
        test::AppFixture f;
        f.keyboard.canListen = false;

        f.launch();

        EXPECT_TRUE(f.wasLaunched);
        EXPECT_EQ(f.log.lines,
            (std::vector<std::string> {
                "Korvane: failed to create CGEventTap — is Accessibility granted?" }));
    }

    TEST(AppDelegateTest, EndingLetsTheShortcutGo)
    {
        test::AppFixture f;
        f.launch();

        f.app.reset();

        EXPECT_EQ(f.grabber.held, std::nullopt);
        EXPECT_EQ(f.loop.pendingTimers(), 0U);
    }

    TEST(AppDelegateTest, ThePanelsMenuReachesTheSamePorts)
    {
        using enum applicationmenu::Action;
        test::AppFixture f;
        f.launch();

        f.panelController->choose(openPreferences);
        ASSERT_NE(f.settings, nullptr);
        EXPECT_TRUE(f.settings->isShown);
        f.panelController->choose(checkForUpdates);
        EXPECT_EQ(f.documents.fetched.size(), 1U);
        f.panelController->choose(openMakersPage);
        ASSERT_EQ(f.desktop.opened.size(), 1U);
        EXPECT_TRUE(f.desktop.opened.front().ends_with("/more"));
        f.panelController->choose(quit);
        EXPECT_EQ(f.quits, 1);
    }

    TEST(AppDelegateTest, PrivateModeSwitchedInThePanelIsSeenOnTheIconAndCapturesNothing)
    {
        test::AppFixture f;
        f.launch();

        f.panelController->togglePrivateMode();
        f.copy("private");

        EXPECT_EQ(f.statusItem.image, "lock.doc");
        EXPECT_EQ(f.clipCount(), 0U);
        f.panelController->togglePrivateMode();
        EXPECT_EQ(f.statusItem.image, "doc.on.clipboard");
    }

    TEST(AppDelegateTest, PrivateModeSwitchedByHandIsSeenOnTheIcon)
    {
        test::AppFixture f;
        f.launch();

        f.preferences.set(keys::privateModeEnabled, true);
        EXPECT_EQ(f.statusItem.image, "lock.doc");
        f.preferences.set(keys::privateModeEnabled, false);
        EXPECT_EQ(f.statusItem.image, "doc.on.clipboard");
    }

    TEST(AppDelegateTest, PreferencesThatAreGoneForAMomentChangeNothingThatProtectsTheUser)
    {
        test::AppFixture f;
        f.preferences.set(keys::maxClips, std::int64_t { 700 });
        f.preferences.set(keys::ignoredBundleIDs, std::vector<std::string> { "org.bank" });
        f.preferences.set(keys::hotkeyKeyCode, std::int64_t { 50 });
        f.preferences.set(keys::privateModeEnabled, true);
        f.launch();

        f.preferences.values.clear();
        f.preferences.changed();

        EXPECT_EQ(f.app->clipStore().maxClips(), 700);
        EXPECT_TRUE(f.app->clipboardMonitor().userIgnoredBundleIDs().contains("org.bank"));
        EXPECT_TRUE(f.app->clipboardMonitor().isPrivateModeEnabled());
        EXPECT_EQ(f.grabber.held, (test::FakeHotkeyGrabber::Chord { 50, 4096 }));
    }

    TEST(AppDelegateTest, APrivateCopyOfWhichNobodyHasHeardYetIsNotCapturedWhenPrivateModeEnds)
    {
        test::AppFixture f;
        f.launch();
        f.statusItem.choose("   Private Mode");
        f.pasteboard.tellsOfChanges = false;
        f.pasteboard.copyText("private");
        f.pasteboard.changesUnderWay = 1;

        f.statusItem.choose("✓ Private Mode");
        f.loop.advance(1s);

        EXPECT_EQ(f.clipCount(), 0U);
    }

    TEST(AppDelegateTest, QuittingHidesThePanelSoThatTheKeyboardGoesBack)
    {
        test::AppFixture f;
        f.launch();
        f.app->shell().showPanel();
        int hides = 0;
        f.panel->onHide = [&] { ++hides; };

        f.app.reset();

        EXPECT_EQ(hides, 1);
    }

    TEST(AppDelegateTest, TheHistoryIsThereAgainAfterARestart)
    {
        test::AppFixture f;
        f.launch();
        f.copy("kept");

        f.launch();

        ASSERT_EQ(f.clipCount(), 1U);
        EXPECT_EQ(f.clipText(0), "kept");
    }

    TEST(AppDelegateTest, ATakenShortcutFromOutsideShowsShortcutUnavailable)
    {
        test::AppFixture f;
        f.launch();
        f.grabber.taken.insert({ 0, 2304 });

        f.preferences.values.insert_or_assign(std::string(keys::hotkeyKeyCode), std::int64_t { 0 });
        f.preferences.values.insert_or_assign(
            std::string(keys::hotkeyModifiers), std::int64_t { 2304 });
        f.preferences.changed();

        ASSERT_EQ(f.alerts.shown.size(), 1U);
        EXPECT_EQ(f.alerts.shown[0].message, "Shortcut unavailable");
        EXPECT_EQ(f.alerts.shown[0].informativeText,
            "That key combination is already in use by macOS or another app. Please try a "
            "different one.");
        EXPECT_EQ(f.alerts.shown[0].buttons, (std::vector<std::string> { "OK" }));
        EXPECT_EQ(f.grabber.held, (std::pair<KeyCode, ModifierMask> { 49, 4096 }));
    }

    TEST(AppDelegateTest, AShortcutThatIsTakenAtTheStartShowsNoAlert)
    {
        test::AppFixture f;
        f.grabber.taken.insert({ 49, 4096 });
        f.launch();

        EXPECT_FALSE(f.app->hotkeyManager().restoreDefaultShortcut());

        EXPECT_TRUE(f.alerts.shown.empty());
    }

    TEST(AppDelegateTest, ASecretThatWasThereAtTheStartIsAskedForOnce)
    {
        test::AppFixture f;
        f.pasteboard.copy({ .isSecret = true, .uriList = std::nullopt, .text = std::nullopt });
        f.launch();

        for (int opening = 0; opening < 3; ++opening) {
            f.app->shell().togglePanel();
            f.loop.turn();
            f.app->shell().togglePanel();
        }

        EXPECT_EQ(f.pasteboard.reads, 1);
    }

    TEST(AppDelegateTest, FilesThatWaitForTheirTurnAreKeptWhenTheProgramEnds)
    {
        test::AppFixture f;
        f.preferences.set(keys::maxClips, std::int64_t { 9999 });
        f.launch();
        std::string list;
        for (int number = 0; number < 500; ++number)
            list += "file:///tmp/" + std::to_string(number) + "\n";
        f.pasteboard.copyFiles(list);
        f.loop.turn();

        f.app.reset();
        f.launch();

        EXPECT_EQ(f.clipCount(), 500U);
        EXPECT_EQ(f.clipText(0), "/tmp/499");
    }

} // namespace
} // namespace korvane
