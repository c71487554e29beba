#include "model/HistoryTransfer.h"

#include "support/SmallDisk.h"
#include "support/TransferFixture.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    namespace fs = std::filesystem;
    using test::TransferFixture;

    constexpr TimePoint someTime { 1717171717999ms };

    TEST(HistoryExportTest, TheFileIsNamedByTheWholeSecondsSince1970)
    {
        TransferFixture f;
        f.loop.setNow(someTime);

        EXPECT_EQ(f.store->exportHistory(), f.exports() / "Korvane_export_1717171717.json");
        f.loop.setNow(TimePoint { 999ms });
        EXPECT_EQ(f.store->exportHistory(), f.exports() / "Korvane_export_0.json");
    }

    TEST(HistoryExportTest, EveryKeyHasALineOfItsOwn)
    {
        TransferFixture f;
        auto clip = test::newClip("a \"text\"", ClipType::code);
        clip.id = *ClipId::parse("0A1B2C3D-1111-2222-3333-444455556666");
        clip.createdAt = someTime;
        clip.sourceApp = "Editor";
        f.store->add(clip);
        f.store->rename(clip.id, "name");

        EXPECT_EQ(test::readBytes(f.store->exportHistory()), R"([
  {
    "id": "0A1B2C3D-1111-2222-3333-444455556666",
    "text": "a \"text\"",
    "type": "code",
    "sourceApp": "Editor",
    "createdAt": "2024-05-31T16:08:37Z",
    "isPinned": false,
    "customName": "name",
    "useCount": 0,
    "isOverflow": false,
    "hasEmoji": false
  }
])");
    }

    TEST(HistoryExportTest, TheWholeListIsInTheFileInItsOrder)
    {
        TransferFixture f;
        f.add("oldest");
        f.addPinned("pinned");
        f.add("newest");

        const auto exported = test::decoded(test::readBytes(f.store->exportHistory()));

        ASSERT_TRUE(exported);
        EXPECT_EQ(*exported, f.store->clips());
        EXPECT_TRUE((*exported)[1].isPinned);
    }

    TEST(HistoryExportTest, AnEmptyHistoryIsAnEmptyArray)
    {
        const TransferFixture f;

        EXPECT_EQ(test::readBytes(f.store->exportHistory()), "[]");
    }

    TEST(HistoryExportTest, OfALargeClipTheRecordIsWrittenAndNotItsFile)
    {
        TransferFixture f;
        f.add(std::string(100'000, 'x'));

        const auto file = f.store->exportHistory();

        const auto exported = test::decoded(test::readBytes(file));
        ASSERT_TRUE(exported && exported->size() == 1);
        EXPECT_EQ(exported->front().overflowPath, f.store->clips()[0].overflowPath);
        EXPECT_EQ(exported->front().overflowByteCount, 100'000);
        EXPECT_EQ(exported->front().text, f.store->clips()[0].text);
        EXPECT_LT(fs::file_size(file), 5000U);
    }

    TEST(HistoryExportTest, OnlyTheUserCanReadTheFile)
    {
        const TransferFixture f;

        EXPECT_EQ(test::modeOf(f.store->exportHistory()), 0600U);
    }

    TEST(HistoryExportTest, AnExportOfTheSameSecondTakesThePlaceOfTheOneBefore)
    {
        TransferFixture f;
        const auto first = f.store->exportHistory();
        f.add("since then");

        const auto second = f.store->exportHistory();

        EXPECT_EQ(first, second);
        EXPECT_EQ(test::decoded(test::readBytes(second)), f.store->clips());
    }

    TEST(HistoryExportTest, ALinkThatLiesInTheWayIsNotWrittenThrough)
    {
        TransferFixture f;
        const auto victim = f.temp.path() / "victim";
        test::writeBytes(victim, "precious");
        const auto file = f.store->exportHistory();
        fs::remove(file);
        fs::create_symlink(victim, file);

        f.store->exportHistory();

        EXPECT_EQ(test::readBytes(victim), "precious");
        EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(file)));
    }

    TEST(HistoryExportTest, AFileThatCannotBeWrittenIsNamedAllTheSame)
    {
        TransferFixture f;
        f.add("clip");
        const auto file = f.store->exportHistory();
        fs::remove(file);
        fs::create_directory(file); // no file can be made where a folder is

        EXPECT_EQ(f.store->exportHistory(), file);
        EXPECT_TRUE(fs::is_directory(file));
        EXPECT_TRUE(f.log.lines.empty());
    }

    TEST(HistoryExportTest, AnExportChangesNothingInTheHistory)
    {
        TransferFixture f;
        f.add("clip");
        int told = 0;
        const auto connection = f.store->clipsChanged.connect([&] { ++told; });
        const auto saved = f.fileBytes();

        f.store->exportHistory();

        EXPECT_EQ(told, 0);
        EXPECT_EQ(f.fileBytes(), saved);
        EXPECT_EQ(f.texts(), std::vector<std::string> { "clip" });
    }

    /// Half of an export could be taken for the whole history.
    bool noHalfExportIsLeft()
    {
        TransferFixture f;
        for (int number = 0; number < 20; ++number)
            f.add(std::to_string(number) + std::string(60'000, 'x'));
        const bool isSmall
            = test::mountSmallDisk(f.exports(), 300'000) || test::limitFiles(300'000);

        const auto file = f.store->exportHistory();

        return isSmall && file.parent_path() == f.exports() && fs::is_empty(f.exports())
            && f.log.lines.empty() && f.store->clips().size() == 20;
    }

    TEST(HistoryExportTest, AFullDiskLeavesNoFileAndTheAnswerIsTheSame)
    {
        EXPECT_TRUE(test::holdsInChild(noHalfExportIsLeft));
    }

} // namespace
} // namespace korvane
