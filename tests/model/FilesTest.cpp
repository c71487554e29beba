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
    using test::readBytes;
    using test::TempFolder;
    using test::writeBytes;

    std::error_code writeWhole(const fs::path& path, std::string_view bytes)
    {
        AtomicFile file(path);
        file.write(bytes);
        return file.commit();
    }

    /// What a process that is killed while it writes leaves behind.
    void leaveHalfAFile(const fs::path& folder)
    {
        const auto child = ::fork();
        if (child == 0) {
            AtomicFile file(folder / "half");
            file.write("secret");
            ::_exit(0);
        }
        ASSERT_EQ(::waitpid(child, nullptr, 0), child);
        ASSERT_EQ(namesIn(folder).size(), 1U);
    }

    TEST(FilesTest, AFileIsReadWhole)
    {
        const TempFolder temp;
        const std::string bytes("a\0b\xFF", 4);
        writeBytes(temp.path() / "file", bytes);

        EXPECT_EQ(readFile(temp.path() / "file", Links::follow)->view(), bytes);
        EXPECT_EQ(readFileText(temp.path() / "file", Links::refuse), bytes);
    }

    TEST(FilesTest, BehindTheBytesOfAFileAreZeroes)
    {
        const TempFolder temp;
        writeBytes(temp.path() / "file", std::string(4096 - 10, 'x'));

        const auto bytes = readFile(temp.path() / "file", Links::follow);

        ASSERT_TRUE(bytes);
        EXPECT_EQ(std::string(bytes->view().data() + bytes->view().size(), FileBytes::spareBytes),
            std::string(FileBytes::spareBytes, '\0'));
    }

    TEST(FilesTest, AnEmptyFileIsNotAMissingOne)
    {
        const TempFolder temp;
        writeBytes(temp.path() / "file", "");

        EXPECT_EQ(readFile(temp.path() / "file", Links::follow)->view(), "");
        EXPECT_FALSE(readFile(temp.path() / "other", Links::follow));
    }

    TEST(FilesTest, ALinkIsFollowedOnlyWhereThatIsWanted)
    {
        const TempFolder temp;
        writeBytes(temp.path() / "file", "bytes");
        fs::create_symlink(temp.path() / "file", temp.path() / "link");

        EXPECT_EQ(readFile(temp.path() / "link", Links::follow)->view(), "bytes");
        EXPECT_FALSE(readFile(temp.path() / "link", Links::refuse));
        EXPECT_FALSE(readFileText(temp.path() / "link", Links::refuse));
    }

    TEST(FilesTest, WhatIsNoRegularFileIsNotRead)
    {
        const TempFolder temp;
        ASSERT_EQ(::mkfifo((temp.path() / "pipe").c_str(), 0600), 0); // to read it would never end

        EXPECT_FALSE(readFile(temp.path() / "pipe", Links::follow));
        EXPECT_FALSE(readFile(temp.path(), Links::follow));
        EXPECT_FALSE(readFile("/dev/zero", Links::follow));
    }

    TEST(FilesTest, AFileOfManyGigabytesIsNotRead)
    {
        const TempFolder temp;
        writeBytes(temp.path() / "file", "");
        fs::resize_file(temp.path() / "file", std::uintmax_t { 1 } << 40); // a hole, no bytes

        EXPECT_FALSE(readFile(temp.path() / "file", Links::follow));
        EXPECT_FALSE(readFileText(temp.path() / "file", Links::follow));
    }

    TEST(FilesTest, AFolderIsMadeWithThoseAboveItForTheUserAlone)
    {
        const TempFolder temp;
        const auto before = ::umask(0777);
        const auto error = makeFolder(temp.path() / "a" / "b" / "c");
        ::umask(before);

        EXPECT_FALSE(error);
        EXPECT_EQ(modeOf(temp.path() / "a"), 0700U);
        EXPECT_EQ(modeOf(temp.path() / "a" / "b" / "c"), 0700U);
    }

    TEST(FilesTest, AFolderThatIsThereAlreadyIsLeftAsItIs)
    {
        const TempFolder temp;
        fs::create_directory(temp.path() / "a");
        fs::permissions(temp.path() / "a", fs::perms(0755));

        EXPECT_FALSE(makeFolder(temp.path() / "a"));
        EXPECT_FALSE(makeFolder(temp.path() / "a" / ""));
        EXPECT_EQ(modeOf(temp.path() / "a"), 0755U);
    }

    TEST(FilesTest, AFolderCannotBeMadeInsideAFile)
    {
        const TempFolder temp;
        writeBytes(temp.path() / "file", "");

        EXPECT_EQ(makeFolder(temp.path() / "file" / "a"), std::errc::file_exists);
        EXPECT_EQ(makeFolder(temp.path() / "file"), std::errc::file_exists);
    }

    TEST(FilesTest, ANewContentTakesTheOldOnesPlaceForTheUserAlone)
    {
        const TempFolder temp;
        const auto path = temp.path() / "file";
        writeBytes(path, "old");
        fs::permissions(path, fs::perms(0644));
        const auto before = ::umask(0777);

        const auto error = writeWhole(path, "new");
        ::umask(before);

        EXPECT_FALSE(error);
        EXPECT_EQ(readBytes(path), "new");
        EXPECT_EQ(modeOf(path), 0600U);
        EXPECT_EQ(namesIn(temp.path()), std::set<std::string> { "file" });
    }

    TEST(FilesTest, UntilTheCommitTheOldContentStands)
    {
        const TempFolder temp;
        const auto path = temp.path() / "file";
        writeBytes(path, "old");
        {
            AtomicFile file(path);
            file.write("new");
            EXPECT_EQ(readBytes(path), "old");
        }

        EXPECT_EQ(readBytes(path), "old");
        EXPECT_EQ(namesIn(temp.path()), std::set<std::string> { "file" });
    }

    TEST(FilesTest, ManyPiecesMakeOneFile)
    {
        const TempFolder temp;
        std::string whole;
        AtomicFile file(temp.path() / "file");
        for (int i = 0; i < 100; ++i) {
            const std::string piece(100'000, static_cast<char>('a' + i % 26));
            file.write(piece);
            whole += piece;
        }

        EXPECT_FALSE(file.commit());
        EXPECT_TRUE(readBytes(temp.path() / "file") == whole);
    }

    TEST(FilesTest, AFailureLeavesNothingBesideTheOldFile)
    {
        const TempFolder temp;
        fs::create_directories(temp.path() / "folder" / "inside");

        EXPECT_EQ(writeWhole(temp.path() / "folder", "new"), std::errc::is_a_directory);
        EXPECT_EQ(namesIn(temp.path()), std::set<std::string> { "folder" });
    }

    TEST(FilesTest, AFolderThatHasVanishedIsMadeAgain)
    {
        const TempFolder temp;

        EXPECT_FALSE(writeWhole(temp.path() / "a" / "b" / "file", "new"));

        EXPECT_EQ(readBytes(temp.path() / "a" / "b" / "file"), "new");
        EXPECT_EQ(modeOf(temp.path() / "a" / "b"), 0700U);
    }

    TEST(FilesTest, AFolderThatVanishesOnTheWayIsAFailureAndNoMore)
    {
        const TempFolder temp;
        fs::create_directory(temp.path() / "a");
        AtomicFile file(temp.path() / "a" / "file");
        file.write("new");
        fs::remove_all(temp.path() / "a");

        EXPECT_EQ(file.commit(), std::errc::no_such_file_or_directory);
        EXPECT_FALSE(fs::exists(temp.path() / "a"));
    }

    TEST(FilesTest, AFolderThatCannotBeMadeIsAFailure)
    {
        const TempFolder temp;
        writeBytes(temp.path() / "file", "");

        EXPECT_EQ(writeWhole(temp.path() / "file" / "b", "new"), std::errc::not_a_directory);
    }

    TEST(FilesTest, ALinkToAFileIsReplacedAndTheFileLeftAlone)
    {
        const TempFolder temp;
        writeBytes(temp.path() / "file", "old");
        fs::create_symlink(temp.path() / "file", temp.path() / "link");

        EXPECT_FALSE(writeWhole(temp.path() / "link", "new"));

        EXPECT_EQ(readBytes(temp.path() / "file"), "old");
        EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(temp.path() / "link")));
    }

    TEST(FilesTest, WhatAKilledProcessHasLeftIsRemoved)
    {
        const TempFolder temp;
        leaveHalfAFile(temp.path());

        AtomicFile::removeLeftover(temp.path());

        EXPECT_EQ(namesIn(temp.path()), std::set<std::string> {});
    }

    TEST(FilesTest, WhatAKilledProcessHasLeftDoesNotStandInTheWay)
    {
        const TempFolder temp;
        leaveHalfAFile(temp.path());

        EXPECT_FALSE(writeWhole(temp.path() / "file", "new"));

        EXPECT_EQ(readBytes(temp.path() / "file"), "new");
        EXPECT_EQ(namesIn(temp.path()), std::set<std::string> { "file" });
    }

    TEST(FilesTest, ALinkInThePlaceOfTheTemporaryFileIsNotFollowed)
    {
        const TempFolder temp;
        leaveHalfAFile(temp.path());
        const auto temporary = fs::directory_iterator(temp.path())->path();
        fs::remove(temporary);
        writeBytes(temp.path() / "precious", "old");
        fs::create_symlink(temp.path() / "precious", temporary);

        EXPECT_FALSE(writeWhole(temp.path() / "file", "new"));

        EXPECT_EQ(readBytes(temp.path() / "precious"), "old");
        EXPECT_EQ(readBytes(temp.path() / "file"), "new");
    }

    TEST(FilesTest, ANewFileHoldsWhatWasWrittenAndIsForItsUserOnly)
    {
        const TempFolder temp;
        const auto path = temp.path() / "new";
        NewFile file(path);

        file.write("one ");
        file.write("two");

        EXPECT_FALSE(file.error());
        EXPECT_EQ(readBytes(path), "one two");
        EXPECT_EQ(modeOf(path), 0600U);
    }

    TEST(FilesTest, ANewFileNeverTakesThePlaceOfAnother)
    {
        const TempFolder temp;
        writeBytes(temp.path() / "taken", "old");
        fs::create_symlink(temp.path() / "nowhere", temp.path() / "link");
        for (const auto* name : { "taken", "link" }) {
            NewFile file(temp.path() / name);
            file.write("new");
            file.giveUp();
            EXPECT_EQ(file.error(), std::errc::file_exists);
        }

        EXPECT_EQ(readBytes(temp.path() / "taken"), "old");
        EXPECT_EQ(namesIn(temp.path()), (std::set<std::string> { "taken", "link" }));
    }

    TEST(FilesTest, ANewFileThatIsGivenUpIsGone)
    {
        const TempFolder temp;
        NewFile file(temp.path() / "new");
        file.write("half");

        file.giveUp();

        EXPECT_TRUE(fs::is_empty(temp.path()));
    }

} // namespace
} // namespace korvane
