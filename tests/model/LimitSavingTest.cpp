#include "model/ClipStore.h"

#include "support/StoreFixture.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cstdint>

namespace korvane {
namespace {

    using test::StoreFixture;
    using Texts = std::vector<std::string>;

    constexpr std::size_t mebibyte = 1024UL * 1024;

    /// Which file lies there, and since when: a save puts a new one in its place.
    struct FileMark {
        ino_t number = 0;
        std::int64_t seconds = 0;
        std::int64_t nanoseconds = 0;

        friend bool operator==(const FileMark&, const FileMark&) = default;
    };

    struct SavingFixture : StoreFixture {
        /// From now on the file that lies there is kept alive, so that a new one cannot get its
        /// number.
        FileMark mark()
        {
            std::error_code ignored;
            std::filesystem::create_hard_link(
                store->fileURL(), temp.path() / "kept alive", ignored);
            return markNow();
        }
        FileMark markNow() const
        {
            struct stat status { };
            if (::stat(store->fileURL().c_str(), &status) != 0)
                return {};
            return { status.st_ino, status.st_mtim.tv_sec, status.st_mtim.tv_nsec };
        }
        /// The history as the next start finds it.
        Texts onDisk() { return textsOf(open()); }
    };

    TEST(LimitSavingTest, TheSizeLimitOfAClipSavesNothing)
    {
        SavingFixture f;
        f.add(std::string(20'000, 'x'));
        const auto before = f.mark();

        f.store->setMaxClipSizeKB(8);

        EXPECT_EQ(f.markNow(), before);
        EXPECT_EQ(f.preferences.integer(keys::maxClipSizeKB), 8);
    }

    TEST(LimitSavingTest, TheNumberOfClipsLeavesTheTrimmedHistoryOnTheDisk)
    {
        SavingFixture f;
        for (const auto* text : { "one", "two", "three" })
            f.add(text);

        f.store->setMaxClips(2);

        EXPECT_EQ(f.onDisk(), (Texts { "three", "two" }));
    }

    TEST(LimitSavingTest, TheTotalSizeLeavesTheTrimmedHistoryOnTheDisk)
    {
        SavingFixture f;
        f.store->setMaxClipSizeKB(1024);
        f.add(std::string(mebibyte, 'x'));
        f.add("small");

        f.store->setMaxTotalSizeMB(1);

        EXPECT_EQ(f.onDisk(), (Texts { "small" }));
    }

    TEST(LimitSavingTest, TheFilesOfClipsThatALimitEvictsGoWithThem)
    {
        SavingFixture f;
        f.store->setMaxClipSizeKB(8);
        f.add(std::string(20'000, 'x'));
        const auto file = *f.store->clips()[0].overflowPath;
        f.add("small");
        ASSERT_TRUE(std::filesystem::exists(file));

        f.store->setMaxClips(1);

        EXPECT_FALSE(std::filesystem::exists(file));
        EXPECT_EQ(f.onDisk(), (Texts { "small" }));
    }

    TEST(LimitSavingTest, ALimitThatEvictsNothingIsSavedAllTheSame)
    {
        SavingFixture f;
        f.add("one");
        for (const auto& set : { &ClipStore::setMaxClips, &ClipStore::setMaxTotalSizeMB }) {
            const auto before = f.mark();

            (f.store.get()->*set)(400);

            EXPECT_NE(f.markNow(), before);
            EXPECT_EQ(f.texts(), (Texts { "one" }));
            std::filesystem::remove(f.temp.path() / "kept alive");
        }
    }

    TEST(LimitSavingTest, ARepetitionOfTheNewestUnpinnedClipBelowAPinnedOneWritesNothing)
    {
        SavingFixture f;
        f.add("newest unpinned");
        f.addPinned("pinned above");
        int told = 0;
        const auto connection = f.store->clipsChanged.connect([&] { ++told; });
        const auto before = f.mark();

        f.add("newest unpinned");

        EXPECT_EQ(f.markNow(), before);
        EXPECT_EQ(f.texts(), (Texts { "pinned above", "newest unpinned" }));
        EXPECT_EQ(told, 0);
    }

    TEST(LimitSavingTest, ATextThatIsOnlyPinnedIsWrittenBesideIt)
    {
        SavingFixture f;
        f.addPinned("pinned");
        const auto before = f.mark();

        f.add("pinned");

        EXPECT_NE(f.markNow(), before);
        EXPECT_EQ(f.onDisk(), (Texts { "pinned", "pinned" }));
    }

    TEST(LimitSavingTest, AnUnknownIdentifierWritesNothing)
    {
        SavingFixture f;
        f.add("one");
        const auto before = f.mark();
        const auto unknown = ClipId::random();

        f.store->togglePin(unknown);
        f.store->rename(unknown, "name");
        f.store->markUsed(unknown);

        EXPECT_EQ(f.markNow(), before);
    }

} // namespace
} // namespace korvane
