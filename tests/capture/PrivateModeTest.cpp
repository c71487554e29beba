#include "capture/ClipboardMonitor.h"

#include "capture/MonitorFixture.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using test::MonitorFixture;
    using Texts = std::vector<std::string>;

    TEST(PrivateModeTest, NothingIsReadInPrivateMode)
    {
        MonitorFixture f;
        f.monitor.setPrivateModeEnabled(true);

        f.copyText("secret");
        f.loop.advance(2s);

        EXPECT_EQ(f.pasteboard.reads, 0);
        EXPECT_EQ(f.workspace.asked, 0);
    }

    TEST(PrivateModeTest, TheCountStaysUnseenInPrivateMode)
    {
        MonitorFixture f;
        f.monitor.setPrivateModeEnabled(true);
        const auto before = f.monitor.lastChangeCount();

        f.copyText("secret");

        EXPECT_EQ(f.monitor.lastChangeCount(), before);
    }

    TEST(PrivateModeTest, WhatIsThereWhenItEndsIsNotCapturedButTheNextCopyIs)
    {
        MonitorFixture f;
        f.monitor.setPrivateModeEnabled(true);
        f.copyText("secret");

        f.monitor.setPrivateModeEnabled(false);
        f.loop.advance(2s);
        EXPECT_EQ(f.texts(), Texts {});

        f.copyText("open");
        EXPECT_EQ(f.texts(), Texts { "open" });
    }

    TEST(PrivateModeTest, ItIsKeptInThePreferences)
    {
        MonitorFixture f;

        f.monitor.setPrivateModeEnabled(true);
        EXPECT_EQ(f.preferences.get(keys::privateModeEnabled), PreferenceValue(true));

        f.monitor.setPrivateModeEnabled(false);
        EXPECT_EQ(f.preferences.get(keys::privateModeEnabled), PreferenceValue(false));
    }

    TEST(PrivateModeTest, EverySettingIsWrittenEvenWithoutAChange)
    {
        MonitorFixture f;

        f.monitor.setPrivateModeEnabled(false);

        EXPECT_EQ(f.preferences.writes, 1);
    }

    TEST(PrivateModeTest, SwitchingItOffTwiceStillTakesEverythingAsSeen)
    {
        MonitorFixture f;
        f.pasteboard.tellsOfChanges = false;
        f.pasteboard.copyText("alpha");

        f.monitor.setPrivateModeEnabled(false);
        f.loop.advance(2s);

        EXPECT_EQ(f.texts(), Texts {});
    }

    TEST(PrivateModeTest, ItIsReadAtTheStartWithoutBeingWritten)
    {
        test::ManualLoop loop;
        test::FakePasteboard pasteboard(loop);
        test::FakeWorkspace workspace;
        test::MemoryPreferences preferences;
        preferences.values.emplace(keys::privateModeEnabled, true);

        const ClipboardMonitor monitor(pasteboard, workspace, preferences, loop);

        EXPECT_TRUE(monitor.isPrivateModeEnabled());
        EXPECT_EQ(preferences.writes, 0);
    }

    TEST(PrivateModeTest, ACopyThatIsStillBeingReadIsDroppedWhenItBegins)
    {
        MonitorFixture f;
        f.pasteboard.holdsAnswers = true;
        f.pasteboard.copyText("secret");

        f.monitor.setPrivateModeEnabled(true);
        f.pasteboard.answerOldest();

        EXPECT_EQ(f.texts(), Texts {});
    }

    TEST(PrivateModeTest, ADroppedCopyStaysDroppedWhenItEndsBeforeTheAnswer)
    {
        MonitorFixture f;
        f.pasteboard.holdsAnswers = true;
        f.pasteboard.copyText("secret");
        f.monitor.setPrivateModeEnabled(true);
        f.monitor.setPrivateModeEnabled(false);

        f.pasteboard.answerOldest();
        EXPECT_EQ(f.texts(), Texts {});

        f.pasteboard.copyText("open");
        f.pasteboard.answerOldest();
        EXPECT_EQ(f.texts(), Texts { "open" });
    }

    TEST(PrivateModeTest, FilesThatHaveNotBecomeClipsWhenItBeginsNeverDo)
    {
        MonitorFixture f;
        std::string list;
        for (int i = 0; i < 100; ++i)
            list += "file:///tmp/" + std::to_string(i) + "\n";
        f.pasteboard.copyFiles(list);
        f.loop.turn();
        const auto before = f.clips.size();

        f.monitor.setPrivateModeEnabled(true);
        f.loop.advance(1s);

        EXPECT_LT(before, 100U);
        EXPECT_EQ(f.clips.size(), before);
    }

    TEST(PrivateModeTest, ItMayBeginWhileAClipIsBeingReceived)
    {
        MonitorFixture f;
        f.monitor.onNewClip = [&f](ClipItem clip) {
            f.clips.push_back(std::move(clip));
            f.monitor.setPrivateModeEnabled(true);
        };

        f.pasteboard.copyFiles("file:///tmp/a\nfile:///tmp/b\n");
        f.loop.advance(1s);

        EXPECT_EQ(f.texts(), Texts { "/tmp/a" });
    }

    TEST(PrivateModeTest, AChangeFromOutsideTakesEffectAndIsNotWrittenBack)
    {
        MonitorFixture f;

        f.setFromOutside(keys::privateModeEnabled, true);
        EXPECT_TRUE(f.monitor.isPrivateModeEnabled());
        f.copyText("secret");

        f.setFromOutside(keys::privateModeEnabled, false);
        f.loop.advance(2s);

        EXPECT_FALSE(f.monitor.isPrivateModeEnabled());
        EXPECT_EQ(f.texts(), Texts {});
        EXPECT_EQ(f.preferences.writes, 0);
    }

    TEST(PrivateModeTest, AChangeFromOutsideDropsACopyThatIsStillBeingRead)
    {
        MonitorFixture f;
        f.pasteboard.holdsAnswers = true;
        f.pasteboard.copyText("secret");

        f.setFromOutside(keys::privateModeEnabled, true);
        f.pasteboard.answerOldest();

        EXPECT_EQ(f.texts(), Texts {});
    }

    TEST(PrivateModeTest, EachRealChangeIsToldOnce)
    {
        MonitorFixture f;
        std::vector<bool> told;
        const auto connection
            = f.monitor.privateModeChanged.connect([&told](bool is) { told.push_back(is); });

        f.monitor.setPrivateModeEnabled(true);
        f.monitor.setPrivateModeEnabled(true);
        f.setFromOutside(keys::privateModeEnabled, false);

        EXPECT_EQ(told, (std::vector<bool> { true, false }));
    }

    TEST(PrivateModeTest, AnotherPreferenceWrittenBySomeoneWhoIsToldChangesNothing)
    {
        MonitorFixture f;
        const auto connection = f.monitor.privateModeChanged.connect(
            [&f](bool) { f.preferences.set(keys::theme, std::string("dark")); });

        f.monitor.setPrivateModeEnabled(true);

        EXPECT_TRUE(f.monitor.isPrivateModeEnabled());
        EXPECT_EQ(f.preferences.get(keys::privateModeEnabled), PreferenceValue(true));
    }

    TEST(PrivateModeTest, WhatIsBeingFetchedIsFetchedNoFurtherWhenItBegins)
    {
        MonitorFixture f;
        f.pasteboard.holdsAnswers = true;
        f.pasteboard.copyText("secret");
        EXPECT_FALSE(f.pasteboard.hasAbandonedReads);

        f.monitor.setPrivateModeEnabled(true);

        EXPECT_TRUE(f.pasteboard.hasAbandonedReads);
    }

} // namespace
} // namespace korvane
