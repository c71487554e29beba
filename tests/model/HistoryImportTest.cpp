#include "model/ClipStore.h"

#include "model/Preferences.h"
#include "support/SmallDisk.h"
#include "support/TransferFixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>

namespace korvane {
namespace {

    namespace fs = std::filesystem;
    using test::newClip;
    using test::TransferFixture;
    using Texts = std::vector<std::string>;

    struct ImportFixture : TransferFixture {
        /// How often the change of the list is told.
        int told = 0;
        Connection changed = store->clipsChanged.connect([this] { ++told; });
        Texts onDisk() const
        {
            Texts texts;
            for (const auto& clip : test::decoded(fileBytes()).value_or(std::vector<ClipItem>()))
                texts.push_back(clip.text);
            return texts;
        }
    };

    TEST(HistoryImportTest, NewClipsComeInAndAllAreInTheOrderOfTheirCapture)
    {
        ImportFixture f;
        f.add({ f.clipOfAge(30, "30"), f.clipOfAge(10, "10") });
        f.told = 0;

        f.take({ f.clipOfAge(40, "40"), f.clipOfAge(20, "20"), f.clipOfAge(0, "0") });

        EXPECT_EQ(f.texts(), (Texts { "0", "10", "20", "30", "40" }));
        EXPECT_EQ(f.onDisk(), f.texts());
        EXPECT_EQ(f.told, 1);
    }

    TEST(HistoryImportTest, PinnedClipsGetNoSpecialPlace)
    {
        ImportFixture f;
        auto pinned = f.clipOfAge(50, "pinned");
        pinned.isPinned = true;
        f.add({ f.clipOfAge(60, "60"), f.clipOfAge(20, "20") });
        f.store->togglePin(f.store->clips()[0].id);

        f.take({ pinned, f.clipOfAge(10, "10") });

        EXPECT_EQ(f.texts(), (Texts { "10", "20", "pinned", "60" }));
    }

    TEST(HistoryImportTest, AnExportOfTheSameHistoryAddsNothingButOrdersTheList)
    {
        ImportFixture f;
        f.add({ f.clipOfAge(10, "newer"), f.clipOfAge(20, "older, inserted last") });
        const auto file = f.store->exportHistory();
        f.told = 0;

        f.store->importHistory(file);

        EXPECT_EQ(f.texts(), (Texts { "newer", "older, inserted last" }));
        EXPECT_EQ(f.onDisk(), f.texts());
        EXPECT_EQ(f.told, 1);
    }

    TEST(HistoryImportTest, OfAClipThatTheHistoryHasItsOwnCopyWins)
    {
        ImportFixture f;
        const auto ours = f.clipOfAge(10, "ours");
        f.store->add(ours);
        auto theirs = ours;
        theirs.text = "theirs";
        theirs.isPinned = true;
        theirs.customName = "name";

        f.take({ theirs });

        ASSERT_EQ(f.texts(), Texts { "ours" });
        EXPECT_FALSE(f.store->clips()[0].isPinned);
        EXPECT_FALSE(f.store->clips()[0].customName);
    }

    TEST(HistoryImportTest, AnIdentifierThatTheFileRepeatsComesInAsOftenAndIsDeletedAtOnce)
    {
        ImportFixture f;
        const auto first = f.clipOfAge(10, "first");
        auto second = first;
        second.text = "second";

        f.take({ first, second });
        EXPECT_EQ(f.texts(), (Texts { "first", "second" }));

        f.store->deleteClip(ClipItem(first));
        EXPECT_TRUE(f.store->clips().empty());
    }

    TEST(HistoryImportTest, AboveTheLimitTheNewestStayAndTheRestGoesWithItsFiles)
    {
        ImportFixture f;
        f.add(std::string(100'000, 'x')); // captured long ago, so the first that has to go
        const fs::path file = *f.store->clips()[0].overflowPath;
        ASSERT_TRUE(fs::exists(file));
        std::vector<ClipItem> clips;
        for (int age = 600; age > 0; --age)
            clips.push_back(f.clipOfAge(age, std::to_string(age)));

        f.take(clips);

        ASSERT_EQ(f.store->clips().size(), 500U);
        EXPECT_EQ(f.texts().front(), "1");
        EXPECT_EQ(f.texts().back(), "500");
        EXPECT_FALSE(fs::exists(file));
        EXPECT_EQ(f.onDisk(), f.texts());
    }

    TEST(HistoryImportTest, APinnedClipStaysHoweverOldItIs)
    {
        ImportFixture f;
        f.preferences.set(keys::maxClips, std::int64_t { 2 });
        auto pinned = f.clipOfAge(1000, "pinned");
        pinned.isPinned = true;

        f.take({ pinned, f.clipOfAge(1, "1"), f.clipOfAge(2, "2") });

        EXPECT_EQ(f.texts(), (Texts { "1", "pinned" }));
    }

    TEST(HistoryImportTest, RecordsAreTakenAsTheyStand)
    {
        ImportFixture f;
        f.add("same text");
        auto clip = f.clipOfAge(1, std::string(100'000, 'x')); // larger than what a copy may be
        clip.type = ClipType::email;
        clip.hasEmoji = true;
        clip.useCount = 7;
        auto twin = f.clipOfAge(2, "same text");

        f.take({ clip, twin });

        ASSERT_EQ(f.store->clips().size(), 3U);
        const auto& taken = f.store->clips()[0];
        EXPECT_EQ(taken.text, clip.text);
        EXPECT_EQ(taken.type, ClipType::email);
        EXPECT_TRUE(taken.hasEmoji);
        EXPECT_EQ(taken.useCount, 7);
        EXPECT_FALSE(taken.isOverflow);
        EXPECT_TRUE(fs::is_empty(f.store->overflowDir()));
    }

    TEST(HistoryImportTest, TheHistoryFileOfAnotherMachineCanBeImported)
    {
        ImportFixture f;
        f.add("kept");
        const auto copy = f.temp.path() / "copy.json";
        fs::copy_file(f.store->fileURL(), copy);
        f.store->clearUnpinned();

        f.store->importHistory(copy);

        EXPECT_EQ(f.texts(), Texts { "kept" });
    }

    /// What is imported must leave everything as it was.
    void expectNothing(const std::function<fs::path(const ImportFixture&)>& file)
    {
        ImportFixture f;
        f.add({ f.clipOfAge(10, "newer"), f.clipOfAge(20, "older, on top") });
        const auto saved = f.fileBytes();
        f.told = 0;

        f.store->importHistory(file(f));

        EXPECT_EQ(f.texts(), (Texts { "older, on top", "newer" }));
        EXPECT_EQ(f.fileBytes(), saved);
        EXPECT_EQ(f.told, 0);
        EXPECT_TRUE(f.log.lines.empty());
    }

    TEST(HistoryImportTest, ARecordOfUnknownTypeImportsNothing)
    {
        expectNothing(
            [](const auto& f) { return f.fileWith(test::listWith("type", R"("image")")); });
    }

    TEST(HistoryImportTest, OneBadRecordAmongGoodOnesImportsNothing)
    {
        expectNothing([](const auto& f) {
            return f.fileWith(
                "[" + test::record({}) + "," + test::recordWith("useCount", "3.0") + "]");
        });
    }

    TEST(HistoryImportTest, AFileThatIsNoListOfClipsImportsNothing)
    {
        for (const auto* bytes : { "", "{}", "null", "[1]", "[", "[]]", "not JSON", "\xFF" })
            expectNothing([&](const auto& f) { return f.fileWith(bytes); });
    }

    TEST(HistoryImportTest, AFileThatCannotBeReadImportsNothing)
    {
        expectNothing([](const auto& f) { return f.temp.path() / "missing.json"; });
        expectNothing([](const auto& f) { return f.temp.path(); });
    }

    TEST(HistoryImportTest, AnEmptyListOnlyOrdersTheHistory)
    {
        ImportFixture f;
        f.add({ f.clipOfAge(10, "newer"), f.clipOfAge(20, "older, on top") });

        f.take({});

        EXPECT_EQ(f.texts(), (Texts { "newer", "older, on top" }));
        EXPECT_EQ(f.onDisk(), f.texts());
    }

    TEST(HistoryImportTest, WhatHasComeInIsFound)
    {
        ImportFixture f;
        f.add("one");
        f.search("needle");
        ASSERT_TRUE(f.shown().empty());

        f.take({ f.clipOfAge(5, "hay"), f.clipOfAge(9, "a Needle") });

        EXPECT_EQ(f.shown(), Texts { "a Needle" });
    }

    /// The record of a large clip whose content would lie at that path.
    ClipItem largeAt(const TransferFixture& f, std::int64_t age, const fs::path& path)
    {
        auto clip = f.clipOfAge(age, "preview");
        clip.isOverflow = true;
        clip.overflowPath = path.string();
        clip.overflowByteCount = 100'000;
        return clip;
    }

    TEST(HistoryImportTest, APathThatLeadsElsewhereIsKeptButNeverReadOrRemoved)
    {
        ImportFixture f;
        const auto victim = f.temp.path() / "victim.txt";
        test::writeBytes(victim, "precious");

        f.take({ largeAt(f, 1, victim) });

        ASSERT_EQ(f.store->clips().size(), 1U);
        EXPECT_EQ(f.store->clips()[0].overflowPath, victim.string());
        EXPECT_EQ(f.store->fullText(f.store->clips()[0]), "preview");
        f.store->clearUnpinned();
        EXPECT_EQ(test::readBytes(victim), "precious");
    }

    /// One large clip of ours, and an imported record that names its file as its own.
    struct SharedFileFixture : ImportFixture {
        SharedFileFixture()
        {
            ours = newClip(std::string(100'000, 'x'));
            ours.createdAt = loop.now();
            store->add(ours);
            ours = store->clips()[0];
            file = *ours.overflowPath;
            theirs = largeAt(*this, 60, file);
            take({ theirs });
        }
        bool oursIsWhole() const { return store->fullText(ours) == std::string(100'000, 'x'); }

        ClipItem ours;
        ClipItem theirs;
        fs::path file;
    };

    TEST(HistoryImportTest, DeletingARecordThatNamesAFileOfOursLeavesOursWhole)
    {
        SharedFileFixture f;
        ASSERT_EQ(f.store->clips().size(), 2U);

        f.store->deleteClip(f.theirs);

        EXPECT_TRUE(f.oursIsWhole());
        f.store->deleteClip(f.ours);
        EXPECT_FALSE(fs::exists(f.file));
    }

    TEST(HistoryImportTest, DeletingOursLeavesItsFileToARecordThatNamesItToo)
    {
        SharedFileFixture f;

        f.store->deleteClip(f.ours);

        EXPECT_EQ(f.store->fullText(f.store->clips()[0]).size(), 100'000U);
    }

    TEST(HistoryImportTest, EvictingARecordThatNamesAFileOfOursLeavesOursWhole)
    {
        SharedFileFixture f;

        f.store->setMaxClips(1);

        ASSERT_EQ(f.store->clips(), std::vector<ClipItem> { f.ours });
        EXPECT_TRUE(f.oursIsWhole());
    }

    TEST(HistoryImportTest, ClearingKeepsTheFileOfAPinnedClipThatAnotherRecordNames)
    {
        SharedFileFixture f;
        f.store->togglePin(f.ours.id);

        f.store->clearUnpinned();

        ASSERT_EQ(f.store->clips().size(), 1U);
        EXPECT_TRUE(f.oursIsWhole());
    }

    TEST(HistoryImportTest, ClearingRemovesAFileThatTwoGoneClipsNamed)
    {
        SharedFileFixture f;

        f.store->clearUnpinned();

        EXPECT_FALSE(fs::exists(f.file));
    }

    TEST(HistoryImportTest, AnImportThatIsEvictedAtOnceLeavesOursWhole)
    {
        ImportFixture f;
        f.preferences.set(keys::maxClips, std::int64_t { 1 });
        auto ours = newClip(std::string(100'000, 'x'));
        ours.createdAt = f.loop.now();
        f.store->add(ours);
        const fs::path file = *f.store->clips()[0].overflowPath;

        f.take({ largeAt(f, 60, file) });

        ASSERT_EQ(f.store->clips(), std::vector<ClipItem> { ours });
        EXPECT_EQ(f.store->fullText(f.store->clips()[0]).size(), 100'000U);
    }

    TEST(HistoryImportTest, AfterAnExportAndAClearTheLargeClipComesBackAsItsPreview)
    {
        ImportFixture f;
        f.add(std::string(100'000, 'x'));
        const auto file = f.store->exportHistory();
        f.store->clearUnpinned();

        f.store->importHistory(file);

        ASSERT_EQ(f.store->clips().size(), 1U);
        EXPECT_EQ(f.store->totalBytes(), 100'000);
        EXPECT_EQ(f.store->fullText(f.store->clips()[0]), std::string(4096, 'x'));
    }

    /// The clips are there for the user, and the next save that finds room writes them.
    bool anImportWithoutRoomStaysInMemory()
    {
        ImportFixture f;
        f.add("before");
        const std::string large(60'000, 'x');
        const std::vector clips { f.clipOfAge(0, large), f.clipOfAge(1, large),
            f.clipOfAge(2, large) };
        const auto file = f.fileOf(clips);
        const auto saved = f.fileBytes();
        const bool isSmall = (test::mountSmallDisk(f.folder(), 120'000) && f.open().clips().empty())
            || test::limitFiles(60'000);
        const auto before = f.fileBytes();

        f.store->importHistory(file);

        return isSmall && (before.empty() || before == saved) && f.fileBytes() == before
            && f.store->clips().size() >= 3 && f.log.lines.empty();
    }

    TEST(HistoryImportTest, WhatFindsNoRoomOnTheDiskIsInTheListAllTheSame)
    {
        EXPECT_TRUE(test::holdsInChild(anImportWithoutRoomStaysInMemory));
    }

} // namespace
} // namespace korvane
