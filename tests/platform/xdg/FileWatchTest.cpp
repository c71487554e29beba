#include "platform/xdg/FileWatch.h"

#include "support/PollLoop.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string_view>

namespace korvane {
namespace {

    namespace fs = std::filesystem;
    using test::PollLoop;
    using test::TempFolder;

    void write(const fs::path& file, std::string_view text)
    {
        std::ofstream stream(file, std::ios::trunc);
        stream << text;
        ASSERT_TRUE(stream.flush().good()) << file;
    }

    void append(const fs::path& file, std::string_view text)
    {
        std::ofstream(file, std::ios::app) << text;
    }

    /// Watches a file and counts how often something was told. What inotify knows it knows when
    /// the change returns, so nothing need be waited for.
    struct Watched {
        explicit Watched(const fs::path& file)
            : watch(file, loop, [this] { ++told; })
        {
            EXPECT_TRUE(watch.isActive());
        }
        /// Whether something has been told since the last time.
        bool isTold()
        {
            loop.runReady();
            return std::exchange(told, 0) > 0;
        }

        PollLoop loop;
        int told = 0;
        FileWatch watch;
    };

    TEST(FileWatchTest, AnEditInPlaceIsTold)
    {
        const TempFolder folder;
        write(folder.path() / "file", "old");
        Watched watched(folder.path() / "file");
        EXPECT_FALSE(watched.isTold());

        append(folder.path() / "file", "new");

        EXPECT_TRUE(watched.isTold());
        EXPECT_FALSE(watched.isTold());
    }

    TEST(FileWatchTest, AReplacementByRenamingIsToldAndThenAnEditOfTheNewFile)
    {
        const TempFolder folder;
        write(folder.path() / "file", "old");
        Watched watched(folder.path() / "file");

        write(folder.path() / "other", "new");
        EXPECT_FALSE(watched.isTold()); // another file of the folder
        fs::rename(folder.path() / "other", folder.path() / "file");
        EXPECT_TRUE(watched.isTold());
        append(folder.path() / "file", "newer");
        EXPECT_TRUE(watched.isTold());
    }

    TEST(FileWatchTest, RemovingAndMakingAreTold)
    {
        const TempFolder folder;
        write(folder.path() / "file", "old");
        Watched watched(folder.path() / "file");

        fs::remove(folder.path() / "file");
        EXPECT_TRUE(watched.isTold());
        write(folder.path() / "file", "new");
        EXPECT_TRUE(watched.isTold());
    }

    TEST(FileWatchTest, AChangeOfThePermissionsIsTold)
    {
        const TempFolder folder;
        write(folder.path() / "file", "old");
        Watched watched(folder.path() / "file");

        fs::permissions(folder.path() / "file", fs::perms::owner_read);

        EXPECT_TRUE(watched.isTold());
    }

    TEST(FileWatchTest, FoldersThatAreMadeLaterAreFollowed)
    {
        const TempFolder folder;
        const auto file = folder.path() / "one" / "two" / "file";
        Watched watched(file);

        fs::create_directory(folder.path() / "one");
        EXPECT_TRUE(watched.isTold());
        fs::create_directory(folder.path() / "one" / "two");
        EXPECT_TRUE(watched.isTold());
        write(file, "new");
        EXPECT_TRUE(watched.isTold());
    }

    TEST(FileWatchTest, FoldersAndFileThatAreMadeInOneGoAreFollowed)
    {
        const TempFolder folder;
        const auto file = folder.path() / "one" / "two" / "file";
        Watched watched(file);

        fs::create_directories(file.parent_path());
        write(file, "new");

        EXPECT_TRUE(watched.isTold());
        append(file, "newer");
        EXPECT_TRUE(watched.isTold());
    }

    TEST(FileWatchTest, AFolderThatIsMovedAwayAndMadeAnewIsFollowed)
    {
        const TempFolder folder;
        const auto file = folder.path() / "inner" / "file";
        fs::create_directory(file.parent_path());
        write(file, "old");
        Watched watched(file);

        fs::rename(file.parent_path(), folder.path() / "elsewhere");
        EXPECT_TRUE(watched.isTold());
        append(folder.path() / "elsewhere" / "file", "no more ours");
        EXPECT_FALSE(watched.isTold());
        fs::create_directory(file.parent_path());
        EXPECT_TRUE(watched.isTold());
        write(file, "new");
        EXPECT_TRUE(watched.isTold());
    }

    TEST(FileWatchTest, AFolderThatIsRemovedAndMadeAnewIsFollowed)
    {
        const TempFolder folder;
        const auto file = folder.path() / "inner" / "file";
        fs::create_directory(file.parent_path());
        write(file, "old");
        Watched watched(file);

        fs::remove_all(file.parent_path());
        EXPECT_TRUE(watched.isTold());
        fs::create_directory(file.parent_path());
        write(file, "new");
        EXPECT_TRUE(watched.isTold());
        append(file, "newer");
        EXPECT_TRUE(watched.isTold());
    }

    TEST(FileWatchTest, TheTargetOfALinkIsFollowed)
    {
        const TempFolder folder;
        const TempFolder elsewhere;
        write(elsewhere.path() / "target", "old");
        fs::create_symlink(elsewhere.path() / "target", folder.path() / "file");
        Watched watched(folder.path() / "file");

        append(elsewhere.path() / "target", "new");

        EXPECT_TRUE(watched.isTold());
    }

    TEST(FileWatchTest, ALinkThatIsPointedElsewhereIsFollowed)
    {
        const TempFolder folder;
        const TempFolder elsewhere;
        write(elsewhere.path() / "one", "one");
        fs::create_directory(elsewhere.path() / "inner");
        write(elsewhere.path() / "inner" / "two", "two");
        fs::create_symlink(elsewhere.path() / "one", folder.path() / "file");
        Watched watched(folder.path() / "file");

        fs::create_symlink(elsewhere.path() / "inner" / "two", folder.path() / "link");
        fs::rename(folder.path() / "link", folder.path() / "file");
        EXPECT_TRUE(watched.isTold());
        append(elsewhere.path() / "inner" / "two", "new");
        EXPECT_TRUE(watched.isTold());
        append(elsewhere.path() / "one", "no more ours");
        EXPECT_FALSE(watched.isTold());
    }

    TEST(FileWatchTest, AFolderBehindARelativeLinkIsFollowed)
    {
        const TempFolder folder;
        fs::create_directories(folder.path() / "files" / "settings");
        fs::create_directory(folder.path() / "home");
        fs::create_directory_symlink("../files/settings", folder.path() / "home" / "inner");
        Watched watched(folder.path() / "home" / "inner" / "file");

        write(folder.path() / "files" / "settings" / "file", "new");

        EXPECT_TRUE(watched.isTold());
    }

    TEST(FileWatchTest, LinksInACircleDoNoHarm)
    {
        const TempFolder folder;
        fs::create_symlink("two", folder.path() / "one");
        fs::create_symlink("one", folder.path() / "two");
        Watched watched(folder.path() / "one");

        fs::remove(folder.path() / "one");
        write(folder.path() / "one", "new");

        EXPECT_TRUE(watched.isTold());
    }

} // namespace
} // namespace korvane
