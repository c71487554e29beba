#include "model/ClipStore.h"

#include "support/StoreFixture.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using test::StoreFixture;
    using Texts = std::vector<std::string>;

    TEST(ClipStoreTest, NewClipsComeFirst)
    {
        StoreFixture f;

        f.add("one");
        f.add("two");

        EXPECT_EQ(f.texts(), (Texts { "two", "one" }));
    }

    TEST(ClipStoreTest, AddingTheNewestTextAgainChangesAndWritesNothing)
    {
        StoreFixture f;
        f.add("alpha");
        const auto before = std::filesystem::last_write_time(f.store->fileURL());
        int told = 0;
        const auto connection = f.store->clipsChanged.connect([&] { ++told; });

        f.add("alpha");

        EXPECT_EQ(f.texts(), (Texts { "alpha" }));
        EXPECT_EQ(std::filesystem::last_write_time(f.store->fileURL()), before);
        EXPECT_EQ(told, 0);
    }

    TEST(ClipStoreTest, TheNewestUnpinnedIsComparedEvenBelowAPinnedClip)
    {
        StoreFixture f;
        f.add("alpha");
        f.addPinned("pinned");

        f.add("alpha");

        EXPECT_EQ(f.texts(), (Texts { "pinned", "alpha" }));
    }

    TEST(ClipStoreTest, ARepeatedOlderTextIsANewClip)
    {
        StoreFixture f;
        f.add("A");
        f.add("B");

        f.add("A");

        EXPECT_EQ(f.texts(), (Texts { "A", "B", "A" }));
    }

    TEST(ClipStoreTest, ACopyEqualToAPinnedClipIsAddedBesideIt)
    {
        StoreFixture f;
        f.addPinned("kept");

        f.add("kept");

        EXPECT_EQ(f.texts(), (Texts { "kept", "kept" }));
    }

    TEST(ClipStoreTest, CanonicallyEquivalentTextsAreTheSameAndLetterCaseCounts)
    {
        StoreFixture f;
        f.add("caf\u00e9");

        f.add("cafe\u0301");
        EXPECT_EQ(f.texts().size(), 1U);
        f.add("CAF\u00c9");
        EXPECT_EQ(f.texts().size(), 2U);
    }

    TEST(ClipStoreTest, AddTellsWhichClipStandsForTheText)
    {
        StoreFixture f;
        const auto first = f.add("alpha");

        const auto kept = f.store->add(test::newClip("alpha"));

        EXPECT_EQ(kept, first);
    }

    TEST(ClipStoreTest, AnEmojiInTheTextIsNoted)
    {
        StoreFixture f;

        f.add("well done 👍");
        EXPECT_TRUE(f.store->clips()[0].hasEmoji);
        f.add("123 #");
        EXPECT_FALSE(f.store->clips()[0].hasEmoji);
    }

    TEST(ClipStoreTest, PinningKeepsThePlaceAndIsSaved)
    {
        StoreFixture f;
        const auto id = f.add("one");
        f.add("two");

        f.store->togglePin(id);

        EXPECT_EQ(f.texts(), (Texts { "two", "one" }));
        EXPECT_TRUE(f.store->find(id)->isPinned);
        EXPECT_TRUE(f.open().find(id)->isPinned);
        f.store->togglePin(id);
        EXPECT_FALSE(f.store->find(id)->isPinned);
    }

    TEST(ClipStoreTest, MarkUsedTwiceCountsTwoAndLeavesTheOrder)
    {
        StoreFixture f;
        const auto id = f.add("one");
        f.add("two");

        f.store->markUsed(id);
        f.store->markUsed(id);

        EXPECT_EQ(f.store->find(id)->useCount, 2);
        EXPECT_EQ(f.texts(), (Texts { "two", "one" }));
        EXPECT_EQ(f.store->lastUsedID(), id);
        EXPECT_EQ(f.store->lastUsedTimestamp(), f.loop.now());
    }

    TEST(ClipStoreTest, AnEmptyNameClearsTheNameAndABlankOneIsKept)
    {
        StoreFixture f;
        const auto id = f.add("one");

        f.store->rename(id, "Invoice");
        EXPECT_EQ(f.store->find(id)->customName, "Invoice");
        f.store->rename(id, " ");
        EXPECT_EQ(f.store->find(id)->customName, " ");
        f.store->rename(id, "");
        EXPECT_EQ(f.store->find(id)->customName, std::nullopt);
        EXPECT_EQ(f.fileBytes().find("customName"), std::string::npos);
    }

    TEST(ClipStoreTest, APinnedClipIsDeletedLikeAnyOther)
    {
        StoreFixture f;
        const auto id = f.addPinned("kept");
        f.add("other");

        f.store->deleteClip(*f.store->find(id));

        EXPECT_EQ(f.texts(), (Texts { "other" }));
        EXPECT_EQ(StoreFixture::textsOf(f.open()), (Texts { "other" }));
    }

    TEST(ClipStoreTest, DeletingRemovesEveryClipWithTheIdentifier)
    {
        StoreFixture f;
        f.add("twice");
        const auto record = f.fileBytes().substr(1, f.fileBytes().size() - 2);
        test::writeBytes(f.store->fileURL(), "[" + record + "," + record + "]");
        f.open();
        ASSERT_EQ(f.texts().size(), 2U);

        f.store->deleteClip(ClipItem(f.store->clips()[0]));

        EXPECT_EQ(f.texts(), Texts {});
    }

    TEST(ClipStoreTest, ClearingKeepsThePinnedClipsInTheirOrderAndTheSelection)
    {
        StoreFixture f;
        f.addPinned("first pinned");
        const auto gone = f.add("gone");
        f.addPinned("second pinned");
        f.store->markUsed(gone);
        f.store->panel().selectedClipID.set(gone);

        f.store->clearUnpinned();

        EXPECT_EQ(f.texts(), (Texts { "second pinned", "first pinned" }));
        EXPECT_EQ(f.store->lastUsedID(), gone);
        EXPECT_EQ(f.store->panel().selectedClipID.value(), gone);
    }

    TEST(ClipStoreTest, AnUnknownIdentifierIsIgnored)
    {
        StoreFixture f;
        f.add("one");
        int told = 0;
        const auto connection = f.store->clipsChanged.connect([&] { ++told; });

        f.store->togglePin(ClipId::random());
        f.store->rename(ClipId::random(), "name");
        f.store->markUsed(ClipId::random());
        f.store->deleteClip(test::newClip("stranger"));

        EXPECT_EQ(f.texts(), (Texts { "one" }));
        EXPECT_EQ(f.store->lastUsedID(), std::nullopt);
        EXPECT_EQ(told, 0);
    }

    TEST(ClipStoreTest, EachChangeIsToldOnceWhenListAndFileAgree)
    {
        StoreFixture f;
        int told = 0;
        bool agreed = true;
        const auto connection = f.store->clipsChanged.connect([&] {
            ++told;
            test::ManualLoop loop;
            test::MemoryPreferences preferences;
            test::RecordingLog log;
            const ClipStore fresh(f.folder(), preferences, loop, log);
            agreed = agreed && StoreFixture::textsOf(fresh) == f.texts();
        });

        const auto id = f.add("one");
        f.add("two");
        f.store->togglePin(id);
        f.store->rename(id, "name");
        f.store->markUsed(id);
        f.store->setMaxClips(60);
        f.store->clearUnpinned();

        EXPECT_EQ(told, 7);
        EXPECT_TRUE(agreed);
    }

    TEST(ClipStoreTest, TheHistoryIsThereAgainAfterARestart)
    {
        StoreFixture f;
        f.add("line one\nline \"two\" \\ \t\x01 \u20ac 👍");
        f.add("two");
        const auto before = f.texts();

        EXPECT_EQ(StoreFixture::textsOf(f.open()), before);
    }

    TEST(ClipStoreTest, IllFormedTextIsRepairedBeforeItIsKept)
    {
        StoreFixture f;

        f.add("bad \xff end");

        EXPECT_EQ(f.texts(), (Texts { "bad \ufffd end" }));
        EXPECT_EQ(StoreFixture::textsOf(f.open()), (Texts { "bad \ufffd end" }));
    }

} // namespace
} // namespace korvane
