#include "capture/ClipboardMonitor.h"

#include "capture/MonitorFixture.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using test::MonitorFixture;
    using Texts = std::vector<std::string>;

    TEST(FileCaptureTest, ThreeFilesBecomeThreeClipsInTheirOrder)
    {
        MonitorFixture f;
        f.workspace.bringToFront("org.example.files", "Files");

        f.pasteboard.copyFiles("file:///tmp/c\r\nfile:///tmp/a%20b\r\nfile:///tmp/d/\r\n");
        f.loop.advance(1ms);

        EXPECT_EQ(f.texts(), (Texts { "/tmp/c", "/tmp/a b", "/tmp/d" }));
        for (const auto& clip : f.clips) {
            EXPECT_EQ(clip.type, ClipType::file);
            EXPECT_EQ(clip.sourceApp, "Files");
        }
    }

    /// A list of files, and the paths in it.
    std::pair<std::string, Texts> manyFiles(int count)
    {
        std::pair<std::string, Texts> files;
        for (int i = 0; i < count; ++i) {
            files.second.push_back("/tmp/" + std::to_string(i));
            files.first += "file://" + files.second.back() + "\r\n";
        }
        return files;
    }

    TEST(FileCaptureTest, ManyFilesComeInPortionsSoThatTheLoopIsNotHeldUp)
    {
        MonitorFixture f;
        const auto [list, paths] = manyFiles(1000);

        f.pasteboard.copyFiles(list);
        f.loop.turn();
        EXPECT_EQ(f.clips.size(), 64U);

        f.loop.advance(1ms);
        EXPECT_EQ(f.texts(), paths);
    }

    TEST(FileCaptureTest, APortionOfFilesIsDeliveredTogether)
    {
        MonitorFixture f;
        std::vector<std::size_t> portions;
        f.monitor.deliverTogether = [&](const std::function<void()>& deliver) {
            const auto before = f.clips.size();
            deliver();
            portions.push_back(f.clips.size() - before);
        };

        f.pasteboard.copyFiles(manyFiles(130).first);
        f.loop.advance(1ms);

        EXPECT_EQ(portions, (std::vector<std::size_t> { 64, 64, 2 }));
    }

    TEST(FileCaptureTest, WhatWaitsForItsTurnIsDeliveredBeforeTheEnd)
    {
        MonitorFixture f;
        auto [list, expected] = manyFiles(1000);
        expected.push_back("later");
        f.pasteboard.copyFiles(list);
        f.loop.turn();
        f.pasteboard.copyText("later");
        f.loop.turn();

        f.monitor.deliverWaiting();

        EXPECT_EQ(f.texts(), expected);
    }

    TEST(FileCaptureTest, ACopyAfterManyFilesComesAfterThemAll)
    {
        MonitorFixture f;
        auto [list, expected] = manyFiles(100);
        expected.push_back("later");

        f.pasteboard.copyFiles(list);
        f.loop.turn();
        f.pasteboard.copyText("later");
        f.loop.advance(1ms);

        EXPECT_EQ(f.texts(), expected);
    }

    TEST(FileCaptureTest, FilesAndTextTogetherYieldTheFilesAlone)
    {
        MonitorFixture f;

        f.pasteboard.copy({ .isSecret = false, .uriList = "file:///tmp/a", .text = "/tmp/a" });
        f.loop.turn();

        ASSERT_EQ(f.clips.size(), 1U);
        EXPECT_EQ(f.clips[0].type, ClipType::file);
    }

    TEST(FileCaptureTest, WebAddressesAreCapturedAsText)
    {
        MonitorFixture f;

        f.pasteboard.copy({ .isSecret = false,
            .uriList = "https://example.org/",
            .text = "https://example.org/" });
        f.loop.turn();

        ASSERT_EQ(f.clips.size(), 1U);
        EXPECT_EQ(f.clips[0].type, ClipType::url);
    }

    TEST(FileCaptureTest, AListThatIsNotAllUrlsIsCapturedAsText)
    {
        MonitorFixture f;

        f.pasteboard.copy(
            { .isSecret = false, .uriList = "file:///tmp/a\r\nfile:///100%", .text = "two files" });
        f.loop.turn();

        EXPECT_EQ(f.texts(), Texts { "two files" });
    }

    TEST(FileCaptureTest, ContentsWithoutFilesAndTextYieldNothing)
    {
        MonitorFixture f;

        f.pasteboard.copy({});
        f.loop.turn();

        EXPECT_EQ(f.pasteboard.reads, 1);
        EXPECT_EQ(f.texts(), Texts {});
    }

    TEST(FileCaptureTest, TheTextBesideFilesIsNotEvenFetched)
    {
        MonitorFixture f;
        std::optional<bool> filesAreEnough;
        f.pasteboard.onRead = [&](const Pasteboard::ListTest& isEnough) {
            filesAreEnough = isEnough && isEnough("file:///tmp/a");
            EXPECT_FALSE(isEnough("https://example.org/"));
        };

        f.pasteboard.copyFiles("file:///tmp/a");

        EXPECT_EQ(filesAreEnough, true);
    }

} // namespace
} // namespace korvane
