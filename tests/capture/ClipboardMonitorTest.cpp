#include "capture/ClipboardMonitor.h"

#include "capture/MonitorFixture.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using test::MonitorFixture;
    using Texts = std::vector<std::string>;

    TEST(ClipboardMonitorTest, ACopyBecomesAClip)
    {
        MonitorFixture f;
        f.workspace.bringToFront("org.example.notes", "Notes");

        f.copyText("alpha");

        ASSERT_EQ(f.clips.size(), 1U);
        const auto& clip = f.clips.front();
        EXPECT_EQ(clip.text, "alpha");
        EXPECT_EQ(clip.type, ClipType::plainText);
        EXPECT_EQ(clip.sourceApp, "Notes");
        EXPECT_EQ(clip.createdAt, f.loop.now());
        EXPECT_FALSE(clip.isPinned);
        EXPECT_EQ(clip.useCount, 0);
        EXPECT_FALSE(clip.isOverflow);
    }

    TEST(ClipboardMonitorTest, EveryClipHasAnIdentifierOfItsOwn)
    {
        MonitorFixture f;

        f.copyText("alpha");
        f.copyText("alpha");

        ASSERT_EQ(f.clips.size(), 2U);
        EXPECT_NE(f.clips[0].id, f.clips[1].id);
    }

    TEST(ClipboardMonitorTest, ATextIsClassified)
    {
        MonitorFixture f;

        f.copyText("https://example.org/");

        ASSERT_EQ(f.clips.size(), 1U);
        EXPECT_EQ(f.clips[0].type, ClipType::url);
    }

    TEST(ClipboardMonitorTest, TheContentsPresentAtTheStartAreNotCaptured)
    {
        test::ManualLoop loop;
        test::FakePasteboard pasteboard(loop);
        test::FakeWorkspace workspace;
        test::MemoryPreferences preferences;
        ClipboardMonitor monitor(pasteboard, workspace, preferences, loop);
        int clips = 0;
        monitor.onNewClip = [&clips](const ClipItem&) { ++clips; };
        pasteboard.copyText("before");

        monitor.startMonitoring();
        loop.advance(2s);

        EXPECT_EQ(clips, 0);
    }

    TEST(ClipboardMonitorTest, AChangeThatNobodyTellsOfIsFoundWithinHalfASecond)
    {
        MonitorFixture f;
        f.pasteboard.tellsOfChanges = false;
        f.pasteboard.copyText("alpha");

        f.loop.advance(499ms);
        EXPECT_EQ(f.texts(), Texts {});

        f.loop.advance(1ms);
        EXPECT_EQ(f.texts(), Texts { "alpha" });
    }

    TEST(ClipboardMonitorTest, AChangeThatIsToldOfIsCapturedAtOnceAndOnlyOnce)
    {
        MonitorFixture f;
        f.pasteboard.copyText("alpha");

        f.loop.turn();
        EXPECT_EQ(f.texts(), Texts { "alpha" });

        f.loop.advance(2s);
        EXPECT_EQ(f.texts(), Texts { "alpha" });
    }

    TEST(ClipboardMonitorTest, WithoutAChangeNeitherContentsNorApplicationsAreAskedFor)
    {
        MonitorFixture f;

        f.loop.advance(1min);

        EXPECT_EQ(f.pasteboard.reads, 0);
        EXPECT_EQ(f.workspace.asked, 0);
    }

    TEST(ClipboardMonitorTest, WithoutAReceiverACopyIsSimplyOver)
    {
        MonitorFixture f;
        f.monitor.onNewClip = nullptr;

        f.copyText("alpha");

        EXPECT_EQ(f.pasteboard.readsUnderWay(), 0U);
        EXPECT_EQ(f.monitor.lastChangeCount(), f.pasteboard.changeCount());
    }

    TEST(ClipboardMonitorTest, TextOfWhiteSpaceAloneYieldsNothing)
    {
        MonitorFixture f;

        f.copyText("");
        f.copyText(" \t\r\n\u00A0\u2028");

        EXPECT_EQ(f.texts(), Texts {});
    }

    TEST(ClipboardMonitorTest, BlanksAroundATextAreKept)
    {
        MonitorFixture f;

        f.copyText("  word  ");

        EXPECT_EQ(f.texts(), Texts { "  word  " });
    }

    TEST(ClipboardMonitorTest, AnApplicationWithoutAnIdentifierIsNamedAsTheSource)
    {
        MonitorFixture f;
        f.workspace.front = RunningApplication { std::nullopt, "Nameless Inc.", 7 };

        f.copyText("alpha");

        ASSERT_EQ(f.clips.size(), 1U);
        EXPECT_EQ(f.clips[0].sourceApp, "Nameless Inc.");
    }

    TEST(ClipboardMonitorTest, WithoutAnApplicationInFrontTheClipHasNoSource)
    {
        MonitorFixture f;

        f.copyText("alpha");

        ASSERT_EQ(f.clips.size(), 1U);
        EXPECT_EQ(f.clips[0].sourceApp, std::nullopt);
    }

    TEST(ClipboardMonitorTest, TheApplicationIsTheOneInFrontWhenTheChangeIsSeen)
    {
        MonitorFixture f;
        f.workspace.bringToFront("org.example.notes", "Notes");
        f.pasteboard.copyText("alpha");

        f.workspace.bringToFront("org.example.mail", "Mail");
        f.loop.turn();

        ASSERT_EQ(f.clips.size(), 1U);
        EXPECT_EQ(f.clips[0].sourceApp, "Notes");
    }

    TEST(ClipboardMonitorTest, ClipsComeInTheOrderOfTheCopiesWhateverAnswersFirst)
    {
        MonitorFixture f;
        f.pasteboard.holdsAnswers = true;
        f.pasteboard.copyText("first");
        f.pasteboard.copyText("second");

        f.pasteboard.answerAt(1);
        EXPECT_EQ(f.texts(), Texts {});

        f.pasteboard.answerAt(0,
            Pasteboard::Contents { .isSecret = false, .uriList = std::nullopt, .text = "first" });
        EXPECT_EQ(f.texts(), (Texts { "first", "second" }));
    }

    TEST(ClipboardMonitorTest, AReadThatANewerChangeDroppedIsSimplyOver)
    {
        MonitorFixture f;
        f.pasteboard.holdsAnswers = true;
        f.pasteboard.copyText("first");
        f.pasteboard.copyText("second");

        f.pasteboard.answerOldest();
        f.pasteboard.answerOldest();

        EXPECT_EQ(f.texts(), Texts { "second" });
    }

    TEST(ClipboardMonitorTest, AnAnswerMayComeAfterTheMonitorsEnd)
    {
        test::ManualLoop loop;
        test::FakePasteboard pasteboard(loop);
        test::FakeWorkspace workspace;
        test::MemoryPreferences preferences;
        int clips = 0;
        {
            ClipboardMonitor monitor(pasteboard, workspace, preferences, loop);
            monitor.onNewClip = [&clips](const ClipItem&) { ++clips; };
            monitor.startMonitoring();
            pasteboard.copyText("alpha");
        }

        loop.turn();

        EXPECT_EQ(clips, 0);
        EXPECT_EQ(loop.pendingTimers(), 0U);
    }

    TEST(ClipboardMonitorTest, FiftyQuickCopiesAreFiftyClipsInOrder)
    {
        MonitorFixture f;
        Texts expected;

        for (int i = 0; i < 50; ++i) {
            expected.push_back("copy " + std::to_string(i));
            f.pasteboard.copyText(expected.back());
            f.loop.advance(20ms);
        }

        EXPECT_EQ(f.texts(), expected);
    }

} // namespace
} // namespace korvane
