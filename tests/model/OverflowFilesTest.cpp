#include "model/OverflowFiles.h"

#include "support/StoreFixture.h"

#include <gtest/gtest.h>

#include <array>

namespace korvane {
namespace {

    namespace fs = std::filesystem;
    using test::newClip;
    using test::readBytes;
    using test::writeBytes;

    struct OverflowFilesTest : testing::Test {
        OverflowFilesTest()
        {
            fs::create_directories(folder / "deeper");
            writeBytes(temp.path() / "other.txt", "another file of the user");
            writeBytes(folder / "deeper" / "a.txt", "another file of the user");
            writeBytes(folder / "a.txt", "content");
        }

        static ClipItem clipAt(const std::string& path)
        {
            auto clip = newClip("preview");
            clip.isOverflow = true;
            clip.overflowPath = path;
            return clip;
        }

        test::TempFolder temp;
        fs::path folder = temp.path() / "overflow";
        test::RecordingLog log;
        OverflowFiles files { folder, log };
    };

    TEST_F(OverflowFilesTest, AFileDirectlyInTheFolderIsReadAndRemoved)
    {
        const auto clip = clipAt(folder / "a.txt");
        EXPECT_EQ(files.fullText(clip), "content");

        files.remove(std::array { clip }, {});

        EXPECT_FALSE(fs::exists(folder / "a.txt"));
    }

    TEST_F(OverflowFilesTest, NoOtherPathIsReadOrRemoved)
    {
        const auto base = folder.string();
        for (const auto& path : { temp.path().string() + "/other.txt", base + "/../other.txt",
                 base + "/deeper/a.txt", base + "/deeper/../a.txt", base + "/./a.txt",
                 base + "//a.txt", base + "/..", base + "/.", base + "/", base,
                 std::string("a.txt"), std::string("/a.txt"), std::string(),
                 base + "/a.txt" + std::string(1, '\0') + ".txt", base + "x/a.txt" }) {
            EXPECT_EQ(files.fullText(clipAt(path)), "preview") << path;
            files.remove(std::array { clipAt(path) }, {});
        }

        EXPECT_EQ(readBytes(temp.path() / "other.txt"), "another file of the user");
        EXPECT_EQ(readBytes(folder / "deeper" / "a.txt"), "another file of the user");
        EXPECT_EQ(readBytes(folder / "a.txt"), "content");
    }

    TEST_F(OverflowFilesTest, ALinkIsNeitherReadNorRemovedWhereverItLeads)
    {
        fs::create_symlink(temp.path() / "other.txt", folder / "out.txt");
        fs::create_symlink(folder / "a.txt", folder / "in.txt");
        for (const auto* name : { "out.txt", "in.txt" }) {
            EXPECT_EQ(files.fullText(clipAt(folder / name)), "preview");
            files.remove(std::array { clipAt(folder / name) }, {});
            EXPECT_TRUE(fs::is_symlink(folder / name));
        }
    }

    TEST_F(OverflowFilesTest, AFolderInPlaceOfTheFileIsLeftAlone)
    {
        fs::remove(folder / "deeper" / "a.txt");

        EXPECT_EQ(files.fullText(clipAt(folder / "deeper")), "preview");
        files.remove(std::array { clipAt(folder / "deeper") }, {});

        EXPECT_TRUE(fs::is_directory(folder / "deeper"));
    }

    TEST_F(OverflowFilesTest, AFileThatAClipWhichStaysNamesTooIsLeft)
    {
        const auto path = (folder / "a.txt").string();

        files.remove(std::array { clipAt(path) }, std::array { newClip("x"), clipAt(path) });
        EXPECT_EQ(readBytes(folder / "a.txt"), "content");

        files.remove(std::array { clipAt(path), clipAt(path) }, std::array { newClip("x") });
        EXPECT_FALSE(fs::exists(folder / "a.txt"));
    }

    TEST_F(OverflowFilesTest, APathOfAClipThatIsNoOverflowClipMeansNothing)
    {
        auto clip = clipAt(folder / "a.txt");
        clip.isOverflow = false;

        EXPECT_EQ(files.fullText(clip), "preview");
        files.remove(std::array { clip }, {});

        EXPECT_TRUE(fs::exists(folder / "a.txt"));
    }

    TEST_F(OverflowFilesTest, AFolderWhoseNameIsNotUtf8ServesAllTheSame)
    {
        const auto odd = temp.path() / "caf\xE9";
        const OverflowFiles oddFiles(odd, log);
        auto clip = newClip(std::string(100'000, 'x'));

        ASSERT_TRUE(oddFiles.divert(clip));

        EXPECT_EQ(
            clip.overflowPath, temp.path().string() + "/caf\uFFFD/" + clip.id.text() + ".txt");
        EXPECT_EQ(oddFiles.fullText(clip).size(), 100'000U);
        oddFiles.remove(std::array { clip }, {});
        EXPECT_TRUE(fs::is_empty(odd));
    }

    TEST_F(OverflowFilesTest, AnotherSpellingOfTheFolderMeansTheSame)
    {
        const OverflowFiles sameFiles(temp.path() / "." / "overflow" / "", log);

        EXPECT_EQ(sameFiles.folder(), folder);
        EXPECT_EQ(sameFiles.fullText(clipAt(folder / "a.txt")), "content");
    }

    TEST_F(OverflowFilesTest, AFailedWriteIsLoggedAndLeavesTheClipAsItWas)
    {
        const auto blocked = temp.path() / "other.txt" / "overflow";
        const OverflowFiles blockedFiles(blocked, log);
        auto clip = newClip(std::string(100'000, 'x'));

        EXPECT_FALSE(blockedFiles.divert(clip));

        EXPECT_EQ(log.lines,
            std::vector<std::string> { "Korvane: overflow write failed for clip " + clip.id.text()
                + ": Not a directory" });
        EXPECT_FALSE(clip.isOverflow);
        EXPECT_EQ(clip.text.size(), 100'000U);
    }

} // namespace
} // namespace korvane
