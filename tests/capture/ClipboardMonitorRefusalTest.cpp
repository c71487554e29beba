#include "capture/ClipboardMonitor.h"

#include "capture/MonitorFixture.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using test::MonitorFixture;
    using Texts = std::vector<std::string>;
    using List = std::vector<std::string>;

    TEST(ClipboardMonitorRefusalTest, CopiesInAPasswordManagerAreNeverFetched)
    {
        for (const auto id : passwordManagerBundleIDs) {
            MonitorFixture f;
            f.workspace.bringToFront(std::string(id), "Keys");

            f.copyText("secret");

            EXPECT_EQ(f.pasteboard.reads, 0) << id;
            EXPECT_EQ(f.texts(), Texts {}) << id;
        }
    }

    TEST(ClipboardMonitorRefusalTest, ARefusedCopyIsDroppedForGood)
    {
        MonitorFixture f;
        f.workspace.bringToFront("com.apple.keychainaccess", "Keychain Access");
        f.copyText("secret");

        f.workspace.bringToFront("org.example.notes", "Notes");
        f.loop.advance(2s);

        EXPECT_EQ(f.pasteboard.reads, 0);
        EXPECT_EQ(f.texts(), Texts {});
    }

    TEST(ClipboardMonitorRefusalTest, ARefusedCopyLeavesTheLastOwnTextAsItWas)
    {
        MonitorFixture f;
        f.monitor.absorbOwnWrite("own");
        f.workspace.bringToFront("com.apple.keychainaccess", "Keychain Access");

        f.copyText("secret");

        EXPECT_EQ(f.monitor.lastOwnText(), "own");
    }

    TEST(ClipboardMonitorRefusalTest, CopiesInAnApplicationOnTheUsersListAreNeverFetched)
    {
        MonitorFixture f;
        f.monitor.addIgnoredApp("org.example.bank");
        f.workspace.bringToFront("org.example.bank", "Bank");

        f.copyText("1234");

        EXPECT_EQ(f.pasteboard.reads, 0);
        EXPECT_EQ(f.texts(), Texts {});
    }

    TEST(ClipboardMonitorRefusalTest, AnApplicationTakenOffTheListIsCapturedAgain)
    {
        MonitorFixture f;
        f.monitor.addIgnoredApp("org.example.bank");
        f.monitor.removeIgnoredApp("org.example.bank");
        f.workspace.bringToFront("org.example.bank", "Bank");

        f.copyText("1234");

        EXPECT_EQ(f.texts(), Texts { "1234" });
    }

    TEST(ClipboardMonitorRefusalTest, AddingAPasswordManagerToTheListDoesNothing)
    {
        MonitorFixture f;

        f.monitor.addIgnoredApp("com.apple.Passwords");

        EXPECT_TRUE(f.monitor.userIgnoredBundleIDs().empty());
        EXPECT_EQ(f.preferences.writes, 0);
    }

    TEST(ClipboardMonitorRefusalTest, ASecretIsRefusedWhateverIsInFront)
    {
        MonitorFixture f;
        f.workspace.bringToFront("org.example.notes", "Notes");
        f.monitor.absorbOwnWrite("own");

        f.pasteboard.copy({ .isSecret = true, .uriList = "file:///tmp/a", .text = "secret" });
        f.loop.turn();

        EXPECT_EQ(f.texts(), Texts {});
        EXPECT_EQ(f.monitor.lastOwnText(), "own");
    }

    TEST(ClipboardMonitorRefusalTest, TheApplicationIsAskedForBeforeFilesAndOwnTextAre)
    {
        MonitorFixture f;
        f.monitor.addIgnoredApp("org.example.bank");
        f.workspace.bringToFront("org.example.bank", "Bank");
        f.monitor.absorbOwnWrite("own");

        f.pasteboard.copy({ .isSecret = false, .uriList = "file:///tmp/a", .text = "own" });
        f.loop.turn();

        EXPECT_EQ(f.pasteboard.reads, 0);
        EXPECT_EQ(f.texts(), Texts {});
        EXPECT_EQ(f.monitor.lastOwnText(), "own");
    }

    TEST(ClipboardMonitorRefusalTest, FilesAreLookedAtBeforeTheOwnTextIs)
    {
        MonitorFixture f;
        f.monitor.absorbOwnWrite("own");

        f.pasteboard.copy({ .isSecret = false, .uriList = "file:///tmp/a", .text = "own" });
        f.loop.turn();

        EXPECT_EQ(f.texts(), Texts { "/tmp/a" });
        EXPECT_EQ(f.monitor.lastOwnText(), "own");
    }

    TEST(ClipboardMonitorRefusalTest, PrivateModeIsAskedForBeforeTheChangeIsSeen)
    {
        MonitorFixture f;
        f.monitor.addIgnoredApp("org.example.bank");
        f.workspace.bringToFront("org.example.bank", "Bank");
        f.monitor.setPrivateModeEnabled(true);
        const auto seen = f.monitor.lastChangeCount();

        f.copyText("1234");

        EXPECT_EQ(f.monitor.lastChangeCount(), seen);
    }

    TEST(ClipboardMonitorRefusalTest, AnApplicationAddedWhileItAnswersIsRefused)
    {
        MonitorFixture f;
        f.pasteboard.holdsAnswers = true;
        f.workspace.bringToFront("org.example.bank", "Bank");
        f.pasteboard.copyText("1234");

        f.monitor.addIgnoredApp("org.example.bank");
        f.pasteboard.answerOldest();

        EXPECT_EQ(f.texts(), Texts {});
    }

    TEST(ClipboardMonitorRefusalTest, TheUsersListIsReadAtTheStart)
    {
        test::ManualLoop loop;
        test::FakePasteboard pasteboard(loop);
        test::FakeWorkspace workspace;
        test::MemoryPreferences preferences;
        preferences.values.emplace(
            keys::ignoredBundleIDs, List { "org.keepassx.keepassxc", "org.example.bank" });

        const ClipboardMonitor monitor(pasteboard, workspace, preferences, loop);

        EXPECT_EQ(monitor.userIgnoredBundleIDs(), IgnoredApps::BundleIDs { "org.example.bank" });
        EXPECT_EQ(preferences.values.at(std::string(keys::ignoredBundleIDs)),
            PreferenceValue(List { "org.example.bank" }));
    }

    TEST(ClipboardMonitorRefusalTest, AListChangedFromOutsideTakesEffect)
    {
        MonitorFixture f;
        int told = 0;
        const auto connection = f.monitor.ignoredAppsChanged.connect([&told] { ++told; });

        f.setFromOutside(keys::ignoredBundleIDs, List { "org.example.bank" });
        f.workspace.bringToFront("org.example.bank", "Bank");
        f.copyText("1234");

        EXPECT_EQ(f.texts(), Texts {});
        EXPECT_EQ(told, 1);
        EXPECT_EQ(f.preferences.writes, 0);
    }

    TEST(ClipboardMonitorRefusalTest, AnOwnChangeOfTheListIsToldOnce)
    {
        MonitorFixture f;
        int told = 0;
        const auto connection = f.monitor.ignoredAppsChanged.connect([&told] { ++told; });

        f.monitor.addIgnoredApp("org.example.bank");
        f.monitor.addIgnoredApp("org.example.bank");

        EXPECT_EQ(told, 1);
    }

    TEST(ClipboardMonitorRefusalTest, ACopyOfWhichNobodyKnowsWhoMadeItIsRefused)
    {
        MonitorFixture f;
        f.workspace.front = RunningApplication { .bundleIdentifier = std::nullopt,
            .localizedName = std::nullopt,
            .window = 0,
            .isKnown = false };

        f.copyText("perhaps a secret");

        EXPECT_EQ(f.texts(), Texts {});
        EXPECT_EQ(f.pasteboard.reads, 0);
    }

    TEST(ClipboardMonitorRefusalTest, WhatWasRefusedAsASecretIsNotAskedForAgain)
    {
        MonitorFixture f;
        f.pasteboard.copy({ .isSecret = true, .uriList = std::nullopt, .text = std::nullopt });
        f.loop.turn();
        EXPECT_FALSE(f.monitor.mayBeRead());

        f.copyText("open");
        EXPECT_TRUE(f.monitor.mayBeRead());
    }

    TEST(ClipboardMonitorRefusalTest, WhatIsThereAtTheStartIsNotReadWhileAPasswordManagerIsInFront)
    {
        MonitorFixture f;
        EXPECT_TRUE(f.monitor.mayBeRead());

        f.workspace.bringToFront("com.apple.Passwords", "Passwords");

        EXPECT_FALSE(f.monitor.mayBeRead());
    }

} // namespace
} // namespace korvane
