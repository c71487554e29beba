#include "settings/FileCopy.h"

#include "support/SmallDisk.h"
#include "support/StoreFixture.h"

#include <gtest/gtest.h>

#include <memory>

namespace korvane {
namespace {

    namespace fs = std::filesystem;
    using namespace std::chrono_literals;
    using test::readBytes;
    using test::writeBytes;

    struct CopyFixture {
        CopyFixture() { writeBytes(source, bytes); }

        void start()
        {
            copy = std::make_unique<FileCopy>(loop, source, target, [this] { ++ended; });
        }
        void finish()
        {
            start();
            for (int turn = 0; ended == 0 && turn < 100; ++turn)
                loop.advance(0ms);
        }

        test::TempFolder temp;
        test::ManualLoop loop;
        std::string bytes = std::string(3'000'000, 'x') + "end";
        fs::path source = temp.path() / "source";
        fs::path target = temp.path() / "target";
        int ended = 0;
        std::unique_ptr<FileCopy> copy;
    };

    TEST(FileCopyTest, TheCopyHoldsTheSameBytesAndIsForItsUserOnly)
    {
        CopyFixture f;

        f.finish();

        EXPECT_EQ(f.ended, 1);
        EXPECT_TRUE(readBytes(f.target) == f.bytes);
        EXPECT_EQ(test::modeOf(f.target), 0600U);
        EXPECT_EQ(readBytes(f.source), f.bytes);
    }

    TEST(FileCopyTest, AnEmptyFileIsCopied)
    {
        CopyFixture f;
        writeBytes(f.source, "");

        f.finish();

        EXPECT_TRUE(fs::exists(f.target));
        EXPECT_EQ(fs::file_size(f.target), 0U);
    }

    TEST(FileCopyTest, WhatIsThereAlreadyStays)
    {
        CopyFixture f;
        writeBytes(f.target, "old");

        f.finish();

        EXPECT_EQ(f.ended, 1);
        EXPECT_EQ(readBytes(f.target), "old");
    }

    TEST(FileCopyTest, WithoutASourceThereIsNoCopy)
    {
        CopyFixture f;
        fs::remove(f.source);

        f.finish();

        EXPECT_EQ(f.ended, 1);
        EXPECT_FALSE(fs::exists(f.target));
    }

    TEST(FileCopyTest, ALinkIsNotFollowed)
    {
        CopyFixture f;
        fs::rename(f.source, f.temp.path() / "elsewhere");
        fs::create_symlink(f.temp.path() / "elsewhere", f.source);

        f.finish();

        EXPECT_FALSE(fs::exists(f.target));
    }

    TEST(FileCopyTest, OtherWorkGetsItsTurnInBetween)
    {
        CopyFixture f;
        int turns = 0;
        std::function<void()> count;
        Timer next;
        count = [&] {
            ++turns;
            if (f.ended == 0)
                next = f.loop.after(0ms, count);
        };
        f.start();
        next = f.loop.after(0ms, count);

        f.loop.advance(0ms);

        EXPECT_EQ(f.ended, 1);
        EXPECT_GE(turns, 4);
    }

    TEST(FileCopyTest, WhoGivesUpHalfWayLeavesNothing)
    {
        CopyFixture f;
        f.start();
        const auto stop = f.loop.after(0ms, [&] { f.copy.reset(); });

        f.loop.advance(0ms);

        EXPECT_EQ(f.ended, 0);
        EXPECT_EQ(test::namesIn(f.temp.path()), (std::set<std::string> { "source" }));
    }

    /// Where there is no room for the whole, nothing is left of it.
    bool aFullDiskGetsNothing()
    {
        CopyFixture f;
        f.target = f.temp.path() / "disk" / "target";
        fs::create_directory(f.target.parent_path());
        const bool isSmall = test::mountSmallDisk(f.target.parent_path(), 1'000'000)
            || test::limitFiles(1'000'000);

        f.finish();

        return isSmall && f.ended == 1 && fs::is_empty(f.target.parent_path());
    }

    TEST(FileCopyTest, WhereThereIsTooLittleRoomNothingIsLeft)
    {
        EXPECT_TRUE(test::holdsInChild(aFullDiskGetsNothing));
    }

} // namespace
} // namespace korvane
