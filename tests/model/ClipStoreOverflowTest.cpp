#include "model/ClipStore.h"

#include "model/Text.h"
#include "support/StoreFixture.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    namespace fs = std::filesystem;
    using test::StoreFixture;

    struct OverflowFixture : StoreFixture {
        const ClipItem& addLarge(std::string text)
        {
            const auto id = add(std::move(text));
            return *store->find(id);
        }
        fs::path fileOf(const ClipItem& clip) const
        {
            return store->overflowDir() / (clip.id.text() + ".txt");
        }
        /// Replaces the path in the history file, and loads it.
        const ClipItem& withPath(const std::string& path)
        {
            auto bytes = fileBytes();
            const auto old = *store->clips()[0].overflowPath;
            bytes.replace(bytes.find(old), old.size(), path);
            test::writeBytes(store->fileURL(), bytes);
            return open().clips()[0];
        }
    };

    std::string text100KiB()
    {
        return std::string(100 * 1024, 'x');
    }

    TEST(ClipStoreOverflowTest, ALargeTextGoesToAFileOfItsOwn)
    {
        OverflowFixture f;

        const auto& clip = f.addLarge(text100KiB());

        EXPECT_TRUE(clip.isOverflow);
        EXPECT_EQ(clip.overflowByteCount, 102400);
        EXPECT_EQ(clip.overflowPath, f.fileOf(clip).string());
        EXPECT_EQ(fs::file_size(f.fileOf(clip)), 102400U);
        EXPECT_EQ(clip.text, overflowPreview(text100KiB(), 30, 4096));
        EXPECT_LE(clip.text.size(), 4096U);
    }

    TEST(ClipStoreOverflowTest, ATextOfExactlyTheLimitIsStoredWhole)
    {
        OverflowFixture f;

        EXPECT_FALSE(f.addLarge(std::string(65536, 'a')).isOverflow);
        EXPECT_TRUE(f.addLarge(std::string(65537, 'b')).isOverflow);
    }

    TEST(ClipStoreOverflowTest, TheLimitCountsBytesNotCharacters)
    {
        OverflowFixture f;
        std::string text;
        while (text.size() <= 65536)
            text += "€";

        EXPECT_TRUE(f.addLarge(text).isOverflow);
    }

    TEST(ClipStoreOverflowTest, TheFileHoldsTheWholeTextByteForByte)
    {
        OverflowFixture f;
        std::string text = "\ufeffline\r\n";
        while (text.size() <= 70000)
            text += "é\t\"\n";

        const auto& clip = f.addLarge(text);

        EXPECT_EQ(test::readBytes(f.fileOf(clip)), text);
        EXPECT_EQ(f.store->fullText(clip), text);
    }

    TEST(ClipStoreOverflowTest, OverflowClipsAreNeverDeduplicated)
    {
        OverflowFixture f;

        f.add(text100KiB());
        f.add(text100KiB());

        EXPECT_EQ(f.store->clips().size(), 2U);
    }

    TEST(ClipStoreOverflowTest, EmojiAreLookedForInThePreviewOnly)
    {
        OverflowFixture f;

        EXPECT_FALSE(f.addLarge(text100KiB() + "👍").hasEmoji);
        EXPECT_TRUE(f.addLarge("👍" + text100KiB()).hasEmoji);
    }

    TEST(ClipStoreOverflowTest, AnOverflowClipWeighsItsWholeContent)
    {
        OverflowFixture f;

        f.add(text100KiB());
        f.add("abc");

        EXPECT_EQ(f.store->totalBytes(), 102400 + 3);
    }

    TEST(ClipStoreOverflowTest, TheCapturedFieldsAreKept)
    {
        OverflowFixture f;
        auto clip = test::newClip(text100KiB(), ClipType::code);
        clip.sourceApp = "Mousepad";
        clip.createdAt = f.loop.now();
        const auto captured = clip;

        f.store->add(std::move(clip));

        const auto& stored = f.store->clips()[0];
        EXPECT_EQ(stored.id, captured.id);
        EXPECT_EQ(stored.type, ClipType::code);
        EXPECT_EQ(stored.sourceApp, "Mousepad");
        EXPECT_EQ(stored.createdAt, captured.createdAt);
    }

    TEST(ClipStoreOverflowTest, DeletingRemovesTheFile)
    {
        OverflowFixture f;
        const ClipItem clip = f.addLarge(text100KiB());

        f.store->deleteClip(clip);

        EXPECT_FALSE(fs::exists(f.fileOf(clip)));
    }

    TEST(ClipStoreOverflowTest, EvictionRemovesTheFile)
    {
        OverflowFixture f;
        f.store->setMaxClips(1);
        const ClipItem clip = f.addLarge(text100KiB());

        f.add("next");

        EXPECT_FALSE(fs::exists(f.fileOf(clip)));
    }

    TEST(ClipStoreOverflowTest, ClearingRemovesTheFilesOfTheUnpinned)
    {
        OverflowFixture f;
        const ClipItem pinned = f.addLarge(text100KiB());
        f.store->togglePin(pinned.id);
        const ClipItem gone = f.addLarge(text100KiB());

        f.store->clearUnpinned();

        EXPECT_TRUE(fs::exists(f.fileOf(pinned)));
        EXPECT_FALSE(fs::exists(f.fileOf(gone)));
    }

    TEST(ClipStoreOverflowTest, WithoutItsFileTheStoredTextIsUsed)
    {
        OverflowFixture f;
        const auto& clip = f.addLarge(text100KiB());
        fs::remove(f.fileOf(clip));

        EXPECT_EQ(f.store->fullText(clip), clip.text);
    }

    TEST(ClipStoreOverflowTest, AFileThatIsNotUtf8IsNotUsed)
    {
        OverflowFixture f;
        const auto& clip = f.addLarge(text100KiB());
        test::writeBytes(f.fileOf(clip), "\xff\xfe");

        EXPECT_EQ(f.store->fullText(clip), clip.text);
    }

    TEST(ClipStoreOverflowTest, AFailedWriteIsLoggedAndTheClipDropped)
    {
        OverflowFixture f;
        f.add("before");
        const auto bytes = f.fileBytes();
        fs::remove(f.store->overflowDir());
        test::writeBytes(f.store->overflowDir(), "a file where the folder was");
        const auto clip = test::newClip(text100KiB());

        const auto kept = f.store->add(clip);

        EXPECT_EQ(kept, std::nullopt);
        EXPECT_EQ(f.texts(), (std::vector<std::string> { "before" }));
        EXPECT_EQ(f.fileBytes(), bytes);
        ASSERT_EQ(f.log.lines.size(), 1U);
        EXPECT_TRUE(f.log.lines[0].starts_with(
            "Korvane: overflow write failed for clip " + clip.id.text() + ": "))
            << f.log.lines[0];
    }

    TEST(ClipStoreOverflowTest, APathOutsideTheFolderIsNeitherReadNorRemoved)
    {
        OverflowFixture f;
        f.add(text100KiB());
        const auto outside = f.temp.path() / "diary.txt";
        test::writeBytes(outside, "private");

        for (const auto& path : { outside, f.store->overflowDir() / "../../diary.txt",
                 f.store->overflowDir() / "sub/x.txt" }) {
            const ClipItem clip = f.withPath(path.string());
            EXPECT_EQ(f.store->fullText(clip), clip.text);
            f.store->deleteClip(clip);
            EXPECT_TRUE(fs::exists(outside));
            f.add(text100KiB());
        }
    }

    TEST(ClipStoreOverflowTest, ALinkIsNeitherFollowedNorRemoved)
    {
        OverflowFixture f;
        const ClipItem clip = f.addLarge(text100KiB());
        const auto outside = f.temp.path() / "diary.txt";
        test::writeBytes(outside, "private");
        fs::remove(f.fileOf(clip));
        fs::create_symlink(outside, f.fileOf(clip));

        EXPECT_EQ(f.store->fullText(clip), clip.text);
        f.store->deleteClip(clip);

        EXPECT_TRUE(fs::is_symlink(f.fileOf(clip)));
        EXPECT_TRUE(fs::exists(outside));
    }

} // namespace
} // namespace korvane
