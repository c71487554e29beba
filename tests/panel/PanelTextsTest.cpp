#include "panel/PanelTexts.h"

#include <gtest/gtest.h>

#include <chrono>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using namespace paneltexts;
    using Items = std::vector<std::string>;

    const TimePoint now { std::chrono::sys_days { std::chrono::year { 2026 } / 11 / 21 } };
    constexpr std::int64_t gigabyte = 1'073'741'824;

    ClipItem clip(std::string text, ClipType type = ClipType::plainText)
    {
        ClipItem made;
        made.id = ClipId::random();
        made.text = std::move(text);
        made.type = type;
        made.createdAt = now - 5min;
        return made;
    }
    ClipItem largeClip(std::int64_t bytes)
    {
        auto made = clip("beginning");
        made.isOverflow = true;
        made.overflowByteCount = bytes;
        return made;
    }

    TEST(PanelTextsTest, ATextClipsTitleIsItsText)
    {
        EXPECT_EQ(rowTitle(clip("first line\nsecond line")), "first line second line");
    }

    TEST(PanelTextsTest, ACustomNameIsTheTitle)
    {
        auto named = clip("1234");
        named.customName = "Invoice";

        EXPECT_EQ(rowTitle(named), "Invoice");
    }

    TEST(PanelTextsTest, AnEmptyCustomNameShowsTheText)
    {
        auto named = clip("1234");
        named.customName = "";

        EXPECT_EQ(rowTitle(named), "1234");
    }

    TEST(PanelTextsTest, ACustomNameOfBlanksIsShownAsSuch)
    {
        auto named = clip("1234");
        named.customName = " ";

        EXPECT_EQ(rowTitle(named), "␣");
    }

    TEST(PanelTextsTest, AFileClipsTitleIsTheFilesName)
    {
        EXPECT_EQ(rowTitle(clip("/home/ada/report.pdf", ClipType::file)), "report.pdf");
    }

    TEST(PanelTextsTest, ARenamedFileClipShowsItsCustomName)
    {
        auto named = clip("/home/ada/report.pdf", ClipType::file);
        named.customName = "Report";

        EXPECT_EQ(rowTitle(named), "Report");
    }

    TEST(PanelTextsTest, APathThatEndsInASlashShowsTheComponentBeforeIt)
    {
        EXPECT_EQ(lastPathComponent("/a/b/"), "b");
        EXPECT_EQ(lastPathComponent("/a/b//"), "b");
        EXPECT_EQ(rowTitle(clip("/a/b/", ClipType::file)), "b");
    }

    TEST(PanelTextsTest, LastPathComponentsOfOddPaths)
    {
        EXPECT_EQ(lastPathComponent("/"), "/");
        EXPECT_EQ(lastPathComponent("///"), "/");
        EXPECT_EQ(lastPathComponent(""), "");
        EXPECT_EQ(lastPathComponent("a"), "a");
        EXPECT_EQ(lastPathComponent("a/"), "a");
        EXPECT_EQ(lastPathComponent("/a//b"), "b");
    }

    TEST(PanelTextsTest, ALineFeedInAFilesNameDoesNotBreakTheTitle)
    {
        EXPECT_EQ(rowTitle(clip("/a/two\nlines", ClipType::file)), "two lines");
    }

    TEST(PanelTextsTest, TheLineUnderTheTitleHasSourceDotAndAge)
    {
        auto copied = clip("a");
        copied.sourceApp = "Mail";

        EXPECT_EQ(metaItems(copied, now), (Items { "Mail", "·", "5m" }));
    }

    TEST(PanelTextsTest, TheDotStandsWithoutASourceAsWell)
    {
        EXPECT_EQ(metaItems(clip("a"), now), (Items { "·", "5m" }));
    }

    TEST(PanelTextsTest, ALargeClipShowsItsWholeSize)
    {
        EXPECT_EQ(metaItems(largeClip(2'621'440), now), (Items { "·", "5m", "·", "2 MB" }));
    }

    TEST(PanelTextsTest, ALargeClipOfUnknownSizeShowsNone)
    {
        auto large = largeClip(1);
        large.overflowByteCount.reset();

        EXPECT_EQ(metaItems(large, now), (Items { "·", "5m" }));
    }

    TEST(PanelTextsTest, AByteCountOfAnOrdinaryClipIsNotShown)
    {
        auto ordinary = clip("a");
        ordinary.overflowByteCount = 5000;

        EXPECT_EQ(metaItems(ordinary, now), (Items { "·", "5m" }));
    }

    TEST(PanelTextsTest, SizesAreTruncatedToWholeUnits)
    {
        EXPECT_EQ(byteSize(0), "0 B");
        EXPECT_EQ(byteSize(1023), "1023 B");
        EXPECT_EQ(byteSize(1024), "1 KB");
        EXPECT_EQ(byteSize(1'048'575), "1023 KB");
        EXPECT_EQ(byteSize(1'048'576), "1 MB");
        EXPECT_EQ(byteSize(gigabyte - 1), "1023 MB");
    }

    TEST(PanelTextsTest, GigabytesHaveOneDecimal)
    {
        EXPECT_EQ(byteSize(gigabyte), "1.0 GB");
        EXPECT_EQ(byteSize(1'610'612'736), "1.5 GB");
        EXPECT_EQ(byteSize(100 * gigabyte), "100.0 GB");
    }

    TEST(PanelTextsTest, TheFirstTenRowsHaveABadge)
    {
        EXPECT_EQ(shortcutBadge(0), "⌘1");
        EXPECT_EQ(shortcutBadge(8), "⌘9");
        EXPECT_EQ(shortcutBadge(9), "⌘0");
    }

    TEST(PanelTextsTest, TheEleventhRowHasNoBadge)
    {
        EXPECT_EQ(shortcutBadge(10), "");
        EXPECT_EQ(shortcutBadge(9998), "");
    }

    Items titles(const std::vector<RowMenuItem>& menu)
    {
        Items all;
        for (const auto& item : menu)
            all.emplace_back(item.action ? item.title : "-");
        return all;
    }

    TEST(PanelTextsTest, TheMenuOfAnOrdinaryClip)
    {
        EXPECT_EQ(titles(rowMenu(clip("a"))),
            (Items {
                "Copy", "Paste Directly", "-", "Pin", "Rename...", "Quick Look", "-", "Delete" }));
    }

    TEST(PanelTextsTest, TheMenuOfALargeClipOffersItsFile)
    {
        EXPECT_EQ(titles(rowMenu(largeClip(5)))[2], "Reveal in Finder");
    }

    TEST(PanelTextsTest, TheMenuOfAFileClipDoesNotOfferToRevealIt)
    {
        for (const auto& item : rowMenu(clip("/a", ClipType::file)))
            EXPECT_NE(item.action, RowAction::reveal);
    }

    TEST(PanelTextsTest, TheMenuOfAPinnedClipUnpins)
    {
        auto pinned = clip("a");
        pinned.isPinned = true;

        EXPECT_EQ(titles(rowMenu(pinned))[3], "Unpin");
    }

    TEST(PanelTextsTest, EveryLineOfTheMenuHasItsOwnAction)
    {
        std::vector<std::optional<RowAction>> actions;
        for (const auto& item : rowMenu(largeClip(5)))
            actions.push_back(item.action);

        EXPECT_EQ(actions,
            (std::vector<std::optional<RowAction>> { RowAction::copy, RowAction::pasteDirectly,
                RowAction::reveal, std::nullopt, RowAction::togglePin, RowAction::rename,
                RowAction::quickLook, std::nullopt, RowAction::remove }));
    }

    TEST(PanelTextsTest, ARowIsDescribedInWords)
    {
        auto large = largeClip(2'097'152);
        large.type = ClipType::code;
        large.sourceApp = "Editor";
        large.isPinned = true;

        EXPECT_EQ(rowDescription(large, now, 2, 42),
            "beginning, Code, Editor, 5m, pinned, large, 2 MB, 3 of 42");
        EXPECT_EQ(rowDescription(clip("a"), now, 0, 1), "a, Text, 5m, 1 of 1");
    }

    TEST(PanelTextsTest, WhatTabAndSearchLeaveIsAnnounced)
    {
        EXPECT_EQ(filterAnnouncement(std::nullopt, 5, ""), "5 clips");
        EXPECT_EQ(filterAnnouncement(std::nullopt, 1, ""), "1 clip");
        EXPECT_EQ(filterAnnouncement(std::nullopt, 0, ""), "No clips");
        EXPECT_EQ(filterAnnouncement(std::nullopt, 2, "a, Text, 5m, 1 of 2"),
            "2 clips, a, Text, 5m, 1 of 2");
    }

    TEST(PanelTextsTest, ANewTabIsAnnouncedBeforeWhatItShows)
    {
        EXPECT_EQ(filterAnnouncement(FilterTab::code, 5, ""), "Code, 5 clips");
        EXPECT_EQ(filterAnnouncement(FilterTab::emoji, 0, ""), "Emoji, no clips");
    }

    TEST(PanelTextsTest, AnEmptyHistoryReadsOneKilobyteInGreen)
    {
        EXPECT_EQ(totals(0, 0), "0 clips / 1 KB");
        EXPECT_EQ(fillLevel(0, 500, 0, 500), FillLevel::low);
    }

    TEST(PanelTextsTest, TotalsChangeUnitAtTheMegabyteAndTheGigabyte)
    {
        EXPECT_EQ(totals(1, 1'048'575), "1 clips / 1023 KB");
        EXPECT_EQ(totals(42, 3'300'000), "42 clips / 3 MB");
        EXPECT_EQ(totals(1, 1'048'576), "1 clips / 1 MB");
        EXPECT_EQ(totals(1, 1'610'612'736), "1 clips / 1.5 GB");
    }

    TEST(PanelTextsTest, TheTotalsToolTipNamesTheLimits)
    {
        EXPECT_EQ(totalsToolTip(42, 500, 300), "Total: 42 / 500 clips · 300 MB limit");
    }

    TEST(PanelTextsTest, TheCountDecidesTheFillLevel)
    {
        EXPECT_EQ(fillLevel(49, 100, 0, 500), FillLevel::low);
        EXPECT_EQ(fillLevel(50, 100, 0, 500), FillLevel::half);
        EXPECT_EQ(fillLevel(74, 100, 0, 500), FillLevel::half);
        EXPECT_EQ(fillLevel(75, 100, 0, 500), FillLevel::high);
        EXPECT_EQ(fillLevel(89, 100, 0, 500), FillLevel::high);
        EXPECT_EQ(fillLevel(90, 100, 0, 500), FillLevel::full);
    }

    TEST(PanelTextsTest, ASizeFractionAboveTheCountFractionDecides)
    {
        EXPECT_EQ(fillLevel(1, 100, 83'886'080, 100), FillLevel::high);
        EXPECT_EQ(fillLevel(80, 100, 1, 100), FillLevel::high);
    }

    TEST(PanelTextsTest, ImpossibleLimitsStillGiveALevel)
    {
        EXPECT_EQ(fillLevel(5, 0, 0, 500), FillLevel::low);
        EXPECT_EQ(fillLevel(5, 100, 1, 0), FillLevel::full);
        EXPECT_EQ(fillLevel(5, -3, 0, -3), FillLevel::low);
    }

    TEST(PanelTextsTest, ThePrivateSwitchsToolTipSaysWhatAPressWouldDo)
    {
        EXPECT_EQ(privateModeToolTip(true), "Disable Private Mode");
        EXPECT_EQ(privateModeToolTip(false), "Enable Private Mode");
    }

} // namespace
} // namespace korvane
