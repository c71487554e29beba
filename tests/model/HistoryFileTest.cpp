#include "model/ClipStore.h"

#include "model/Files.h"
#include "support/StoreFixture.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <set>

namespace korvane {
namespace {

    namespace fs = std::filesystem;
    using test::modeOf;
    using test::namesIn;
    using test::StoreFixture;
    using Texts = std::vector<std::string>;

    TEST(HistoryFileTest, FoldersAndFilesAreTheUsersAloneWhateverTheUmask)
    {
        for (const unsigned mask : { 0U, 0777U & ~0700U }) {
            const auto before = ::umask(mask);
            StoreFixture f;
            f.add(std::string(70000, 'x'));
            ::umask(before);

            EXPECT_EQ(modeOf(f.folder()), 0700U);
            EXPECT_EQ(modeOf(f.store->overflowDir()), 0700U);
            EXPECT_EQ(modeOf(f.store->fileURL()), 0600U);
            EXPECT_EQ(modeOf(*f.store->clips()[0].overflowPath), 0600U);
        }
    }

    TEST(HistoryFileTest, TheFileIsMadeByTheFirstSave)
    {
        StoreFixture f;
        EXPECT_FALSE(fs::exists(f.store->fileURL()));

        f.add("one");

        EXPECT_TRUE(fs::exists(f.store->fileURL()));
    }

    TEST(HistoryFileTest, TheFileIsOneCompactArrayNewestFirst)
    {
        StoreFixture f;
        f.add("one");
        f.add("two");

        const auto bytes = f.fileBytes();
        EXPECT_TRUE(bytes.starts_with("[{\"id\":\""));
        EXPECT_TRUE(bytes.ends_with("}]"));
        EXPECT_LT(bytes.find("\"two\""), bytes.find("\"one\""));
        EXPECT_EQ(bytes.find('\n'), std::string::npos);
        EXPECT_EQ(bytes.find(": "), std::string::npos);
    }

    TEST(HistoryFileTest, NoEarlierVersionStaysInTheFolder)
    {
        StoreFixture f;

        f.add("a secret that was deleted");
        f.store->deleteClip(ClipItem(f.store->clips()[0]));

        EXPECT_EQ(namesIn(f.folder()), (std::set<std::string> { "clips.json", "overflow" }));
        EXPECT_EQ(f.fileBytes(), "[]");
    }

    TEST(HistoryFileTest, WhatAKilledProcessHasLeftBesideIsRemovedAtTheStart)
    {
        StoreFixture f;
        f.add("one");
        const auto pid = ::fork();
        if (pid == 0) {
            AtomicFile file(f.store->fileURL());
            file.write("half of a hist");
            ::_exit(0); // as a kill: nothing is cleared up
        }
        ::waitpid(pid, nullptr, 0);
        ASSERT_EQ(namesIn(f.folder()).size(), 3U);

        f.open();

        EXPECT_EQ(namesIn(f.folder()), (std::set<std::string> { "clips.json", "overflow" }));
    }

    TEST(HistoryFileTest, ADirectoryInItsPlaceGivesAnEmptyHistoryAndLosesNothingInMemory)
    {
        StoreFixture f;
        fs::create_directories(f.store->fileURL() / "inside");

        f.open();
        f.add("kept in memory");

        EXPECT_EQ(f.texts(), (Texts { "kept in memory" }));
        EXPECT_TRUE(fs::is_directory(f.store->fileURL()));
    }

    TEST(HistoryFileTest, ADanglingLinkGivesAnEmptyHistoryAndIsReplaced)
    {
        StoreFixture f;
        fs::create_symlink(f.temp.path() / "nowhere", f.store->fileURL());

        f.open();
        EXPECT_EQ(f.texts(), Texts {});
        f.add("one");

        EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(f.store->fileURL())));
        EXPECT_FALSE(fs::exists(f.temp.path() / "nowhere"));
    }

    TEST(HistoryFileTest, AFolderThatVanishesWhileRunningIsMadeAgain)
    {
        StoreFixture f;
        f.add("one");
        fs::remove_all(f.folder());

        f.add("two");

        EXPECT_EQ(StoreFixture::textsOf(f.open()), (Texts { "two", "one" }));
        EXPECT_EQ(modeOf(f.folder()), 0700U);
    }

    TEST(HistoryFileTest, WhatCannotBeSavedStaysAndIsSavedWithTheNextChange)
    {
        StoreFixture f;
        fs::create_directories(f.store->fileURL() / "in the way");
        f.add("one");
        fs::remove_all(f.store->fileURL());

        f.add("two");

        EXPECT_EQ(StoreFixture::textsOf(f.open()), (Texts { "two", "one" }));
    }

} // namespace
} // namespace korvane
