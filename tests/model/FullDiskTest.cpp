#include "model/ClipStore.h"

#include "support/SmallDisk.h"
#include "support/StoreFixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace korvane {
namespace {

    namespace fs = std::filesystem;
    using test::StoreFixture;

    /// A store on a disk that holds little more than one clip of this size.
    constexpr std::size_t largeClip = 60'000;
    constexpr std::size_t diskSize = 2 * largeClip;

    struct SmallDiskStore : StoreFixture {
        SmallDiskStore()
        {
            // A save needs room for the old history and the new one.
            isSmall = test::mountSmallDisk(folder(), diskSize) || test::limitFiles(largeClip);
            open();
        }
        bool fillUp()
        {
            add("before");
            saved = fileBytes();
            add(std::string(largeClip, 'x'));
            return isSmall && store->clips().size() == 2;
        }
        std::size_t filesBeside() const
        {
            return static_cast<std::size_t>(
                std::distance(fs::directory_iterator(folder()), fs::directory_iterator()));
        }

        bool isSmall = false;
        std::string saved;
    };

    /// The clip fits beside the short history, but then the next save finds no room for both.
    bool theOldHistoryStands()
    {
        SmallDiskStore f;
        bool isRight = f.fillUp();
        const auto full = f.fileBytes();
        f.add(std::string(largeClip, 'y'));
        // In memory nothing is lost; on the disk is one of the histories that were saved.
        isRight = isRight && f.store->clips().size() == 3;
        isRight = isRight && (f.fileBytes() == full || f.fileBytes() == f.saved);
        return isRight && f.filesBeside() == 2 && f.log.lines.empty();
    }

    bool theNextSaveWithRoomHoldsAll()
    {
        SmallDiskStore f;
        bool isRight = f.fillUp();
        f.add(std::string(largeClip, 'y'));
        const auto tooMuch = f.store->clips()[1];
        f.store->deleteClip(ClipItem(f.store->clips()[0]));
        f.store->deleteClip(tooMuch);
        f.add("after");
        isRight = isRight
            && StoreFixture::textsOf(f.open()) == std::vector<std::string> { "after", "before" };
        return isRight;
    }

    bool aLargeClipIsDroppedWithOneLine()
    {
        SmallDiskStore f;
        f.add("before");
        const auto saved = f.fileBytes();
        const auto id = f.add(std::string(3 * diskSize, 'z'));
        const auto& lines = f.log.lines;
        return f.isSmall && f.store->clips().size() == 1 && f.fileBytes() == saved
            && fs::is_empty(f.store->overflowDir()) && lines.size() == 1
            && lines[0].starts_with("Korvane: overflow write failed for clip " + id.text() + ": ");
    }

    /// One large clip with a file of its own takes half of the disk, and small ones fill the rest. The
    /// change that removes the large clip must bring the whole list to the disk.
    bool afterOnFullDisk(const std::function<void(StoreFixture&)>& removeTheLargeOne)
    {
        SmallDiskStore f;
        f.preferences.set(keys::maxClipSizeKB, std::int64_t { 1 });
        f.open();
        f.add(std::string(largeClip, 'x'));
        const fs::path file = f.store->clips()[0].overflowPath.value_or("");
        bool isRight = fs::exists(file);
        std::size_t saved = 0;
        for (int number = 0; saved != f.fileBytes().size(); ++number) {
            saved = f.fileBytes().size();
            f.add(std::to_string(number) + std::string(1000, 'y'));
        }
        const auto unsaved = f.store->clips()[0].id;

        removeTheLargeOne(f);

        isRight = isRight && !fs::exists(file);
        const auto inMemory = f.store->clips().size();
        const auto& onDisk = f.open().clips();
        return isRight && f.isSmall && onDisk.size() == inMemory
            && (onDisk.empty() || onDisk[0].id == unsaved);
    }

    /// What a large clip leaves is too little: then the history of before stands, whole, and the clip
    /// in it gives its beginning. The next save that finds room holds the list as it is.
    bool tooLittleRoomLeavesAWholeHistory()
    {
        SmallDiskStore f;
        f.preferences.set(keys::maxClipSizeKB, std::int64_t { 1 });
        f.open();
        f.add("before");
        f.add(std::string(5000, 'x'));
        const auto saved = f.fileBytes();
        f.store->setMaxClipSizeKB(1024);
        f.add(std::string(diskSize, 'y'));
        bool isRight = f.isSmall && f.fileBytes() == saved;

        f.store->deleteClip(ClipItem(f.store->clips()[1]));

        isRight = isRight && f.fileBytes() == saved && f.filesBeside() == 2 && f.log.lines.empty()
            && f.store->clips().size() == 2;
        ClipStore next(f.folder(), f.preferences, f.loop, f.log); // as a start after a crash
        isRight = isRight && next.clips().size() == 2
            && next.fullText(next.clips()[0]) == std::string(4096, 'x');
        f.store->deleteClip(ClipItem(f.store->clips()[0]));
        return isRight && StoreFixture::textsOf(f.open()) == std::vector<std::string> { "before" };
    }

    TEST(FullDiskTest, TooLittleRoomLeavesAWholeHistoryAndTheListInMemory)
    {
        EXPECT_TRUE(test::holdsInChild(tooLittleRoomLeavesAWholeHistory));
    }

    TEST(FullDiskTest, DeletingALargeClipFreesTheRoomThatTheRestNeeds)
    {
        EXPECT_TRUE(test::holdsInChild([] {
            return afterOnFullDisk(
                [](StoreFixture& f) { f.store->deleteClip(ClipItem(f.store->clips().back())); });
        }));
    }

    TEST(FullDiskTest, EvictingALargeClipFreesTheRoomThatTheRestNeeds)
    {
        EXPECT_TRUE(test::holdsInChild([] {
            return afterOnFullDisk([](StoreFixture& f) {
                f.store->setMaxClips(static_cast<int>(f.store->clips().size()) - 1);
            });
        }));
    }

    TEST(FullDiskTest, ClearingTheHistoryWorksOnAFullDisk)
    {
        EXPECT_TRUE(test::holdsInChild(
            [] { return afterOnFullDisk([](StoreFixture& f) { f.store->clearUnpinned(); }); }));
    }

    TEST(FullDiskTest, AFullDiskLeavesTheOldHistoryAndTheListInMemory)
    {
        EXPECT_TRUE(test::holdsInChild(theOldHistoryStands));
    }

    TEST(FullDiskTest, WhenThereIsRoomAgainTheNextChangeSavesAll)
    {
        EXPECT_TRUE(test::holdsInChild(theNextSaveWithRoomHoldsAll));
    }

    TEST(FullDiskTest, ALargeClipThatFindsNoRoomIsLoggedAndDroppedWithItsFile)
    {
        EXPECT_TRUE(test::holdsInChild(aLargeClipIsDroppedWithOneLine));
    }

} // namespace
} // namespace korvane
