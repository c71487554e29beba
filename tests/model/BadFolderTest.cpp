#include "model/ClipStore.h"

#include "support/SmallDisk.h"
#include "support/StoreFixture.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

namespace korvane {
namespace {

    namespace fs = std::filesystem;
    using test::StoreFixture;
    using Texts = std::vector<std::string>;

    constexpr std::size_t large = 70'000;

    /// A store in a folder that its user can close; root, to whom nothing is closed, becomes
    /// somebody else.
    struct ClosableFixture : StoreFixture {
        ClosableFixture() { add("before"); }

        /// In a process of its own: nobody can go back to being root.
        bool becomeAUser() const
        {
            constexpr uid_t nobody = 65534;
            if (::geteuid() != 0)
                return true;
            if (::chown(temp.path().c_str(), nobody, nobody) != 0)
                return false;
            for (const auto& entry : fs::recursive_directory_iterator(temp.path())) {
                if (::lchown(entry.path().c_str(), nobody, nobody) != 0)
                    return false;
            }
            return ::setuid(nobody) == 0;
        }
        void close() const { fs::permissions(folder(), fs::perms::none); }
        void unlock() const { fs::permissions(folder(), fs::perms::owner_all); }
    };

    bool aStartInAClosedFolderIsEmptyAndGoesOn()
    {
        ClosableFixture f;
        if (!f.becomeAUser())
            return false;
        f.close();
        f.open();
        const auto isEmpty = f.store->clips().empty() && f.log.lines.empty();
        const auto small = f.add("in memory");
        f.store->togglePin(small);
        f.store->markUsed(small);
        const auto dropped = f.add(std::string(large, 'x'));
        const auto isRight = isEmpty && f.texts() == Texts { "in memory" }
            && f.store->clips()[0].isPinned
            && f.log.lines
                == Texts { "Korvane: overflow write failed for clip " + dropped.text()
                       + ": Permission denied" };
        f.store.reset();
        f.unlock();
        // What lay there before is still there.
        return isRight && StoreFixture::textsOf(f.open()) == Texts { "before" };
    }

    bool aFolderThatIsClosedMeanwhileLosesNothing()
    {
        ClosableFixture f;
        if (!f.becomeAUser())
            return false;
        f.close();
        f.add("while closed");
        f.store->clearUnpinned();
        f.add("still closed");
        f.unlock();
        const auto onDisk = f.fileBytes();
        f.add("open again");
        return onDisk.find("before") != std::string::npos && f.log.lines.empty()
            && StoreFixture::textsOf(f.open()) == Texts { "open again", "still closed" };
    }

    bool largeClipsOfAClosedFolderGiveTheirBeginning()
    {
        ClosableFixture f;
        f.add(std::string(large, 'x'));
        if (!f.becomeAUser())
            return false;
        f.close();
        const auto closed = f.store->fullText(f.store->clips()[0]);
        f.unlock();
        const auto unlocked = f.store->fullText(f.store->clips()[0]);
        return closed == std::string(4096, 'x') && unlocked == std::string(large, 'x');
    }

    TEST(BadFolderTest, AStartInAClosedFolderIsEmptyAndGoesOnInMemory)
    {
        EXPECT_TRUE(test::holdsInChild(aStartInAClosedFolderIsEmptyAndGoesOn));
    }

    TEST(BadFolderTest, AFolderThatIsClosedMeanwhileLosesNothing)
    {
        EXPECT_TRUE(test::holdsInChild(aFolderThatIsClosedMeanwhileLosesNothing));
    }

    TEST(BadFolderTest, LargeClipsOfAClosedFolderGiveTheirBeginning)
    {
        EXPECT_TRUE(test::holdsInChild(largeClipsOfAClosedFolderGiveTheirBeginning));
    }

    TEST(BadFolderTest, AFileInTheFoldersPlaceIsLeftAloneAndTheListInMemoryGoesOn)
    {
        StoreFixture f;
        fs::remove_all(f.folder());
        test::writeBytes(f.folder(), "somebody's file");

        f.open();
        f.add("in memory");
        const auto dropped = f.add(std::string(large, 'x'));

        EXPECT_EQ(f.texts(), Texts { "in memory" });
        EXPECT_EQ(test::readBytes(f.folder()), "somebody's file");
        EXPECT_EQ(f.log.lines,
            Texts { "Korvane: overflow write failed for clip " + dropped.text()
                + ": Not a directory" });
    }

    TEST(BadFolderTest, WhenTheFileHasGoneTheNextCopyMakesTheFolderAndSavesAll)
    {
        StoreFixture f;
        fs::remove_all(f.folder());
        test::writeBytes(f.folder(), "somebody's file");
        f.open();
        f.add("in memory");

        fs::remove(f.folder());
        f.add("next");

        EXPECT_EQ(StoreFixture::textsOf(f.open()), (Texts { "next", "in memory" }));
    }

    TEST(BadFolderTest, AFileInTheOverflowFoldersPlaceDropsLargeClipsAlone)
    {
        StoreFixture f;
        fs::remove_all(f.store->overflowDir());
        test::writeBytes(f.store->overflowDir(), "somebody's file");

        f.open();
        f.add(std::string(large, 'x'));
        f.add("small");

        EXPECT_EQ(f.log.lines.size(), 1U);
        EXPECT_EQ(StoreFixture::textsOf(f.open()), Texts { "small" });
    }

    TEST(BadFolderTest, AnUnreadableHistoryIsEmptyAndSilent)
    {
        StoreFixture f;
        f.add("one");
        // Root reads everything, so the reader is somebody else.
        const auto pid = ::fork();
        if (pid == 0) {
            fs::permissions(f.store->fileURL(), fs::perms::none);
            if (::geteuid() == 0
                && (::chown(f.temp.path().c_str(), 65534, 65534) != 0
                    || ::chown(f.folder().c_str(), 65534, 65534) != 0 || ::setuid(65534) != 0))
                ::_exit(2);
            ::_exit(f.open().clips().empty() && f.log.lines.empty() ? 0 : 1);
        }
        int status = 0;
        ::waitpid(pid, &status, 0);

        EXPECT_EQ(WEXITSTATUS(status), 0);
    }

    TEST(BadFolderTest, InAFolderThatCannotBeWrittenTheListInMemoryGoesOn)
    {
        StoreFixture f;
        f.add("before");
        const auto pid = ::fork();
        if (pid == 0) {
            fs::permissions(f.folder(),
                fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read
                    | fs::perms::others_exec);
            fs::permissions(f.temp.path(), fs::perms::others_read | fs::perms::others_exec,
                fs::perm_options::add);
            if (::geteuid() == 0 && ::setuid(65534) != 0)
                ::_exit(2);
            f.add("after");
            ::_exit(f.texts().front() == "after" ? 0 : 1);
        }
        int status = 0;
        ::waitpid(pid, &status, 0);

        EXPECT_EQ(WEXITSTATUS(status), 0);
        EXPECT_EQ(StoreFixture::textsOf(f.open()), (Texts { "before" }));
    }

    TEST(BadFolderTest, AFullDiskLeavesTheOldHistoryAndTheNextSaveTheNewOne)
    {
        StoreFixture f;
        f.add("before");
        const auto pid = ::fork();
        if (pid == 0) {
            // As a full disk does, a write beyond the limit fails half way.
            ::signal(SIGXFSZ, SIG_IGN);
            const rlimit limit { 4096, 4096 };
            ::setrlimit(RLIMIT_FSIZE, &limit);
            f.add(std::string(60'000, 'x'));
            const auto inMemory = f.store->clips().size();
            f.add(std::string(70'000, 'y')); // its own file cannot be written either
            ::_exit(
                inMemory == 2 && f.store->clips().size() == 2 && f.log.lines.size() == 1 ? 0 : 1);
        }
        int status = 0;
        ::waitpid(pid, &status, 0);

        EXPECT_EQ(WEXITSTATUS(status), 0);
        EXPECT_EQ(StoreFixture::textsOf(f.open()), (Texts { "before" }));
        f.add("room again");
        EXPECT_EQ(StoreFixture::textsOf(f.open()), (Texts { "room again", "before" }));
    }

} // namespace
} // namespace korvane
