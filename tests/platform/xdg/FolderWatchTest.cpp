#include "platform/xdg/FolderWatch.h"

#include "platform/qt/QtMainLoop.h"
#include "support/EventLoop.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace korvane {
namespace {

    using test::waitUntil;

    struct WatchedFolder {
        test::TempFolder temp;
        QtMainLoop loop;
        FolderWatch watch { loop };
        int changes = 0;
        Connection connection = watch.changed.connect([this] { ++changes; });

        std::filesystem::path folder() const { return temp.path() / "applications"; }
        void write(const std::filesystem::path& file) const { std::ofstream(file) << "text"; }
    };

    TEST(FolderWatchTest, ANewFileIsTold)
    {
        WatchedFolder f;
        std::filesystem::create_directory(f.folder());
        f.watch.setFolders({ f.folder() });

        f.write(f.folder() / "a");

        EXPECT_TRUE(waitUntil([&] { return f.changes > 0; }));
    }

    TEST(FolderWatchTest, ARemovedFileIsTold)
    {
        WatchedFolder f;
        std::filesystem::create_directory(f.folder());
        f.write(f.folder() / "a");
        f.watch.setFolders({ f.folder() });

        std::filesystem::remove(f.folder() / "a");

        EXPECT_TRUE(waitUntil([&] { return f.changes > 0; }));
    }

    TEST(FolderWatchTest, TheMakingOfAMissingFolderIsTold)
    {
        WatchedFolder f;
        f.watch.setFolders({ f.folder() / "deeper" });

        std::filesystem::create_directories(f.folder() / "deeper");

        EXPECT_TRUE(waitUntil([&] { return f.changes > 0; }));
    }

    TEST(FolderWatchTest, FilesAboveAMissingFolderAreNotTold)
    {
        WatchedFolder f;
        f.watch.setFolders({ f.folder() });

        f.write(f.temp.path() / "beside");
        std::filesystem::create_directory(
            f.folder()); // and this is, so that there is an end to wait for

        EXPECT_TRUE(waitUntil([&] { return f.changes > 0; }));
        EXPECT_EQ(f.changes, 1);
    }

    TEST(FolderWatchTest, AFolderThatIsNoLongerWatchedIsNotTold)
    {
        WatchedFolder f;
        std::filesystem::create_directory(f.folder());
        std::filesystem::create_directory(f.temp.path() / "other");
        f.watch.setFolders({ f.folder() });
        f.watch.setFolders({ f.temp.path() / "other" });

        f.write(f.folder() / "a");
        std::filesystem::create_directory(f.temp.path() / "other" / "inner");

        EXPECT_TRUE(waitUntil([&] { return f.changes > 0; }));
        EXPECT_EQ(f.changes, 1);
    }

} // namespace
} // namespace korvane
