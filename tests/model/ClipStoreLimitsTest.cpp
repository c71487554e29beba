#include "model/ClipStore.h"

#include "support/StoreFixture.h"

#include <gtest/gtest.h>

#include <limits>

namespace korvane {
namespace {

    using test::StoreFixture;
    using Texts = std::vector<std::string>;

    constexpr std::size_t mebibyte = 1024 * 1024;

    /// Makes the store anew with these preferences.
    struct LimitsFixture : StoreFixture {
        void openWith(std::string_view key, PreferenceValue value)
        {
            preferences.set(key, std::move(value));
            open();
        }
    };

    TEST(ClipStoreLimitsTest, FreshPreferencesGiveTheDefaults)
    {
        const StoreFixture f;

        EXPECT_EQ(f.store->maxClips(), 500);
        EXPECT_EQ(f.store->maxClipSizeKB(), 64);
        EXPECT_EQ(f.store->maxTotalSizeMB(), 500);
        EXPECT_EQ(f.preferences.writes, 0);
    }

    TEST(ClipStoreLimitsTest, ZeroAndBelowReadAsTheDefaults)
    {
        LimitsFixture f;

        f.openWith(keys::maxClips, std::int64_t { 0 });
        EXPECT_EQ(f.store->maxClips(), 500);
        f.openWith(keys::maxClips, std::int64_t { -3 });
        EXPECT_EQ(f.store->maxClips(), 500);
        f.openWith(keys::maxTotalSizeMB, std::int64_t { 0 });
        EXPECT_EQ(f.store->maxTotalSizeMB(), 500);
    }

    TEST(ClipStoreLimitsTest, WrongTypesReadAsTheDefaults)
    {
        LimitsFixture f;

        f.openWith(keys::maxClips, std::string("many"));
        f.openWith(keys::maxTotalSizeMB, std::vector<std::string> { "1" });

        EXPECT_EQ(f.store->maxClips(), 500);
        EXPECT_EQ(f.store->maxTotalSizeMB(), 500);
    }

    TEST(ClipStoreLimitsTest, NumbersBeyondTheFieldBecomeTheLargest)
    {
        LimitsFixture f;

        f.openWith(keys::maxClips, std::int64_t { 9'000'000'000'000'000'000 });
        f.openWith(keys::maxClipSizeKB, std::int64_t { 9'000'000'000'000'000'000 });
        f.add("still added");

        EXPECT_EQ(f.store->maxClips(), std::numeric_limits<int>::max());
        EXPECT_EQ(f.texts(), (Texts { "still added" }));
    }

    TEST(ClipStoreLimitsTest, TheLimitOfAnEarlierVersionIsTakenOverInMemoryOnly)
    {
        LimitsFixture f;

        f.openWith(keys::maxClipSizeMB, std::int64_t { 2 });

        EXPECT_EQ(f.store->maxClipSizeKB(), 2048);
        EXPECT_EQ(f.preferences.values.count("maxClipSizeMB"), 0U);
        EXPECT_EQ(f.preferences.values.count("maxClipSizeKB"), 0U);
        EXPECT_EQ(f.open().maxClipSizeKB(), 64);
    }

    TEST(ClipStoreLimitsTest, AnEarlierLimitThatIsNoPositiveIntegerStaysInPlace)
    {
        for (const PreferenceValue& value :
            { PreferenceValue { std::int64_t { 0 } }, PreferenceValue { std::string("2") },
                PreferenceValue { 2.0 }, PreferenceValue { true } }) {
            LimitsFixture f;

            f.openWith(keys::maxClipSizeMB, value);

            EXPECT_EQ(f.store->maxClipSizeKB(), 64);
            EXPECT_EQ(f.preferences.get(keys::maxClipSizeMB), value);
        }
    }

    TEST(ClipStoreLimitsTest, ASizeLimitOfItsOwnLeavesTheEarlierOneAlone)
    {
        LimitsFixture f;
        f.preferences.set(keys::maxClipSizeMB, std::int64_t { 2 });

        f.openWith(keys::maxClipSizeKB, std::int64_t { 8 });

        EXPECT_EQ(f.store->maxClipSizeKB(), 8);
        EXPECT_EQ(f.preferences.integer(keys::maxClipSizeMB), 2);
    }

    TEST(ClipStoreLimitsTest, OfFourClipsThreeAreKept)
    {
        StoreFixture f;
        f.store->setMaxClips(3);

        for (const auto* text : { "1", "2", "3", "4" })
            f.add(text);

        EXPECT_EQ(f.texts(), (Texts { "4", "3", "2" }));
    }

    TEST(ClipStoreLimitsTest, BesideThreePinnedClipsAFourthIsEvictedAtOnce)
    {
        StoreFixture f;
        f.store->setMaxClips(3);
        for (const auto* text : { "a", "b", "c" })
            f.addPinned(text);

        f.add("d");

        EXPECT_EQ(f.texts(), (Texts { "c", "b", "a" }));
    }

    TEST(ClipStoreLimitsTest, LoweringTheTotalBelowThePinnedEvictsEveryUnpinnedAndStops)
    {
        StoreFixture f;
        f.store->setMaxClipSizeKB(10240);
        f.addPinned(std::string(2 * mebibyte, 'p'));
        f.add("small");
        f.add("smaller");

        f.store->setMaxTotalSizeMB(1);

        ASSERT_EQ(f.texts().size(), 1U);
        EXPECT_TRUE(f.store->clips()[0].isPinned);
    }

    TEST(ClipStoreLimitsTest, TheTotalCountsBytesAndEvictsTheLowest)
    {
        StoreFixture f;
        f.store->setMaxClipSizeKB(10240);
        f.store->setMaxTotalSizeMB(2);
        f.add(std::string(mebibyte, 'a'));
        f.add(std::string(mebibyte, 'b'));
        EXPECT_EQ(f.store->totalBytes(), 2 * static_cast<std::int64_t>(mebibyte));

        f.add("c");

        EXPECT_EQ(f.store->clips().size(), 2U);
        EXPECT_EQ(f.store->totalBytes(), static_cast<std::int64_t>(mebibyte) + 1);
    }

    TEST(ClipStoreLimitsTest, SettingALimitWritesItsPreference)
    {
        StoreFixture f;

        f.store->setMaxClips(60);
        f.store->setMaxClipSizeKB(8);
        f.store->setMaxTotalSizeMB(70);

        EXPECT_EQ(f.preferences.integer(keys::maxClips), 60);
        EXPECT_EQ(f.preferences.integer(keys::maxClipSizeKB), 8);
        EXPECT_EQ(f.preferences.integer(keys::maxTotalSizeMB), 70);
    }

    TEST(ClipStoreLimitsTest, ASmallerSizeLimitLeavesStoredClipsAsTheyAre)
    {
        StoreFixture f;
        f.add(std::string(20 * 1024, 'x'));

        f.store->setMaxClipSizeKB(8);

        EXPECT_EQ(f.store->clips()[0].text.size(), 20U * 1024);
        EXPECT_FALSE(f.store->clips()[0].isOverflow);
    }

    TEST(ClipStoreLimitsTest, AHistoryAboveTheLimitsIsTrimmedByTheFirstAdd)
    {
        StoreFixture f;
        for (int i = 0; i < 5; ++i)
            f.add(std::to_string(i));
        f.preferences.set(keys::maxClips, std::int64_t { 3 });

        f.open();
        EXPECT_EQ(f.store->clips().size(), 5U);
        f.add("new");

        EXPECT_EQ(f.texts(), (Texts { "new", "4", "3" }));
    }

    TEST(ClipStoreLimitsTest, ALimitChangedFromOutsideHoldsFromTheNextCopyOn)
    {
        StoreFixture f;
        for (int i = 0; i < 5; ++i)
            f.add(std::to_string(i));

        f.preferences.set(keys::maxClips, std::int64_t { 3 });
        EXPECT_EQ(f.store->maxClips(), 3);
        EXPECT_EQ(f.store->clips().size(), 5U);
        f.add("new");

        EXPECT_EQ(f.texts(), (Texts { "new", "4", "3" }));
    }

    TEST(ClipStoreLimitsTest, UnpinningDoesNotEvictUntilTheNextAdd)
    {
        StoreFixture f;
        const auto id = f.addPinned("a");
        f.addPinned("b");
        f.store->setMaxClips(1);

        f.store->togglePin(id);
        EXPECT_EQ(f.store->clips().size(), 2U);
        f.store->enforceLimits();

        EXPECT_EQ(f.texts(), (Texts { "b" }));
    }

} // namespace
} // namespace korvane
