#include "settings/LimitFields.h"

#include "model/Preferences.h"
#include "settings/LimitTexts.h"
#include "support/FakeAlerts.h"
#include "support/StoreFixture.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

namespace korvane {
namespace {

    using enum LimitField;

    constexpr std::size_t mebibyte = 1024UL * 1024;

    struct LimitFixture : test::StoreFixture {
        /// So many clips, as a history that is loaded.
        void fill(int count)
        {
            store->savingOnce([&] {
                for (int number = 0; number < count; ++number)
                    add(std::to_string(number));
            });
        }
        /// A history of more than so many MiB, in one clip below a small one.
        void fillMegabytes(std::size_t megabytes)
        {
            store->setMaxClipSizeKB(1024 * 1024);
            add(std::string(megabytes * mebibyte, 'x'));
            add("small");
        }
        std::string lastQuestion() const { return alerts.asked.back().informativeText; }

        test::FakeAlerts alerts;
        std::unique_ptr<LimitFields> made
            = std::make_unique<LimitFields>(*store, preferences, alerts);
        LimitFields& fields = *made;
    };

    TEST(LimitFieldsTest, WhatIsAgreedToIsShownAlsoWhenThePageHasAppearedAgainMeanwhile)
    {
        LimitFixture f;
        f.fill(60);
        f.fields.commit(LimitField::maxClips, 55);
        ASSERT_EQ(f.alerts.asked.size(), 1U);

        f.fields.load();
        f.alerts.agree();

        EXPECT_EQ(f.store->maxClips(), 55);
        EXPECT_EQ(f.fields.value(LimitField::maxClips), 55);
    }

    TEST(LimitFieldsTest, TheFieldsShowTheLimitsOfTheStore)
    {
        LimitFixture f;

        EXPECT_EQ(f.fields.value(maxClips), 500);
        EXPECT_EQ(f.fields.value(maxClipSizeKB), 64);
        EXPECT_EQ(f.fields.value(maxTotalSizeMB), 500);
    }

    TEST(LimitFieldsTest, ALimitThatIsChangedElsewhereIsShownWhenThePageAppearsAgain)
    {
        LimitFixture f;
        f.preferences.set(keys::maxClips, std::int64_t { 300 });
        EXPECT_EQ(f.fields.value(maxClips), 500);

        f.fields.load();

        EXPECT_EQ(f.fields.value(maxClips), 300);
    }

    TEST(LimitFieldsTest, TooFewClipsBecomeTheFewestThatCanBe)
    {
        LimitFixture f;

        f.fields.commit(maxClips, 20);

        EXPECT_EQ(f.fields.value(maxClips), 50);
        EXPECT_EQ(f.store->maxClips(), 50);
        EXPECT_EQ(f.preferences.integer(keys::maxClips), 50);
    }

    TEST(LimitFieldsTest, TooFewClipsAreAskedAboutWhereMoreThanTheFewestExist)
    {
        LimitFixture f;
        f.fill(60);

        f.fields.commit(maxClips, 20);
        EXPECT_EQ(f.fields.value(maxClips), 50);
        EXPECT_EQ(f.store->maxClips(), 500);
        EXPECT_EQ(f.lastQuestion(),
            "The 10 oldest unpinned clips will be deleted. This cannot be undone.");

        f.alerts.agree();
        EXPECT_EQ(f.store->maxClips(), 50);
        EXPECT_EQ(f.store->clips().size(), 50U);
    }

    TEST(LimitFieldsTest, AnyNumberFrom10000OnBecomes9999Clips)
    {
        for (const std::int64_t typed : { std::int64_t { 10'000 }, std::int64_t { 123'456 },
                 std::numeric_limits<std::int64_t>::max() }) {
            LimitFixture f;

            f.fields.commit(maxClips, typed);

            EXPECT_EQ(f.fields.value(maxClips), 9999);
            EXPECT_EQ(f.store->maxClips(), 9999);
        }
    }

    TEST(LimitFieldsTest, FewerClipsThanThereAreAreAskedAboutInThesePreciseWords)
    {
        LimitFixture f;
        f.fill(120);

        f.fields.commit(maxClips, 100);

        ASSERT_EQ(f.alerts.asked.size(), 1U);
        const auto& question = f.alerts.asked.front();
        EXPECT_EQ(question.message, "Reduce clip limit?");
        EXPECT_EQ(question.informativeText,
            "The 20 oldest unpinned clips will be deleted. This cannot be undone.");
        EXPECT_EQ(question.kind, Alert::Kind::warning);
        EXPECT_EQ(question.buttons, (std::vector<std::string> { "Apply", "Cancel" }));
        EXPECT_EQ(question.suppression, "Don't show again");
        EXPECT_FALSE(question.isDestructive);
    }

    TEST(LimitFieldsTest, OneClipIsSpokenOfInTheSingular)
    {
        LimitFixture f;
        f.fill(120);

        f.fields.commit(maxClips, 119);

        EXPECT_EQ(
            f.lastQuestion(), "The 1 oldest unpinned clip will be deleted. This cannot be undone.");
        EXPECT_EQ(limittexts::reduceClipLimit(37).informativeText,
            "The 37 oldest unpinned clips will be deleted. This cannot be undone.");
    }

    TEST(LimitFieldsTest, PinnedClipsCountAsClipsThatCouldGo)
    {
        LimitFixture f;
        f.fill(58);
        f.addPinned("pinned");
        f.addPinned("pinned too");

        f.fields.commit(maxClips, 50);

        EXPECT_EQ(f.lastQuestion(),
            "The 10 oldest unpinned clips will be deleted. This cannot be undone.");
    }

    TEST(LimitFieldsTest, ALimitThatCostsNoClipIsSetWithoutAQuestion)
    {
        LimitFixture f;
        f.fill(40);

        f.fields.commit(maxClips, 50);

        EXPECT_EQ(f.store->maxClips(), 50);
        EXPECT_TRUE(f.alerts.asked.empty());
    }

    TEST(LimitFieldsTest, AsManyClipsAsThereAreCostNone)
    {
        LimitFixture f;
        f.fill(60);

        f.fields.commit(maxClips, 60);

        EXPECT_EQ(f.store->maxClips(), 60);
        EXPECT_TRUE(f.alerts.asked.empty());
    }

    TEST(LimitFieldsTest, WhoCancelsGetsTheOldLimitBack)
    {
        LimitFixture f;
        f.fill(60);

        f.fields.commit(maxClips, 55);
        EXPECT_EQ(f.fields.value(maxClips), 55);
        f.alerts.cancel();

        EXPECT_EQ(f.fields.value(maxClips), 500);
        EXPECT_EQ(f.store->maxClips(), 500);
        EXPECT_EQ(f.store->clips().size(), 60U);
    }

    TEST(LimitFieldsTest, WithoutAWindowToAskOverNothingChanges)
    {
        LimitFixture f;
        f.fill(60);
        f.alerts.hasWindow = false;

        f.fields.commit(maxClips, 55);

        EXPECT_EQ(f.fields.value(maxClips), 500);
        EXPECT_EQ(f.store->maxClips(), 500);
        f.alerts.hasWindow = true;
        f.fields.commit(maxClips, 55);
        EXPECT_TRUE(f.alerts.isOpen());
    }

    TEST(LimitFieldsTest, WhoAppliesAndAsksForSilenceIsNotAskedAgainByEitherLimit)
    {
        LimitFixture f;
        f.fillMegabytes(60);
        f.fill(60);
        f.fields.commit(maxClips, 61);

        f.alerts.agree(true);

        EXPECT_TRUE(f.preferences.boolean(keys::skipMaxClipsWarning));
        f.fields.commit(maxClips, 55);
        f.fields.commit(maxTotalSizeMB, 50);
        EXPECT_EQ(f.alerts.asked.size(), 1U);
        EXPECT_EQ(f.store->maxClips(), 55);
        EXPECT_EQ(f.store->maxTotalSizeMB(), 50);
    }

    TEST(LimitFieldsTest, WhoCancelsHasNotAskedForSilence)
    {
        LimitFixture f;
        f.fill(60);
        f.fields.commit(maxClips, 55);

        f.alerts.cancel(true);

        EXPECT_FALSE(f.preferences.get(keys::skipMaxClipsWarning));
        f.fields.commit(maxClips, 55);
        EXPECT_TRUE(f.alerts.isOpen());
    }

    TEST(LimitFieldsTest, WhoAppliesWithoutTheBoxIsAskedAgain)
    {
        LimitFixture f;
        f.fill(60);
        f.fields.commit(maxClips, 58);
        f.alerts.agree();

        f.fields.commit(maxClips, 55);

        EXPECT_EQ(f.alerts.asked.size(), 2U);
        EXPECT_FALSE(f.preferences.get(keys::skipMaxClipsWarning));
    }

    TEST(LimitFieldsTest, TheSameNumberWritesNothing)
    {
        LimitFixture f;
        f.fill(3);
        const auto writes = f.preferences.writes;
        for (const auto field : allLimitFields)
            f.fields.commit(field, f.fields.value(field));

        EXPECT_EQ(f.preferences.writes, writes);
        EXPECT_TRUE(f.alerts.asked.empty());
    }

    TEST(LimitFieldsTest, TheClipSizeIsSetAtOnceAndNeverAskedAbout)
    {
        LimitFixture f;
        f.add(std::string(20'000, 'x'));

        f.fields.commit(maxClipSizeKB, 4);
        EXPECT_EQ(f.fields.value(maxClipSizeKB), 8);
        EXPECT_EQ(f.store->maxClipSizeKB(), 8);

        f.fields.commit(maxClipSizeKB, 10'241);
        EXPECT_EQ(f.fields.value(maxClipSizeKB), 10'240);
        EXPECT_EQ(f.store->maxClipSizeKB(), 10'240);
        EXPECT_TRUE(f.alerts.asked.empty());
        EXPECT_EQ(f.store->clips()[0].text.size(), 20'000U);
    }

    TEST(LimitFieldsTest, TheTotalSizeStaysWithinItsRange)
    {
        LimitFixture f;

        f.fields.commit(maxTotalSizeMB, 49);
        EXPECT_EQ(f.fields.value(maxTotalSizeMB), 50);
        EXPECT_EQ(f.store->maxTotalSizeMB(), 50);

        f.fields.commit(maxTotalSizeMB, 10'001);
        EXPECT_EQ(f.fields.value(maxTotalSizeMB), 10'000);
        EXPECT_EQ(f.store->maxTotalSizeMB(), 10'000);
    }

    TEST(LimitFieldsTest, ATotalSizeThatHoldsTheHistoryIsSetAtOnce)
    {
        LimitFixture f;
        f.fillMegabytes(60);

        f.fields.commit(maxTotalSizeMB, 61);

        EXPECT_EQ(f.store->maxTotalSizeMB(), 61);
        EXPECT_TRUE(f.alerts.asked.empty());
    }

    TEST(LimitFieldsTest, ATotalSizeOfExactlyTheHistoryIsSetAtOnce)
    {
        LimitFixture f;
        f.store->setMaxClipSizeKB(1024 * 1024);
        f.add(std::string(60 * mebibyte, 'x'));

        f.fields.commit(maxTotalSizeMB, 60);

        EXPECT_EQ(f.store->maxTotalSizeMB(), 60);
        EXPECT_TRUE(f.alerts.asked.empty());
    }

    TEST(LimitFieldsTest, ATotalSizeBelowTheHistoryIsAskedAboutInThesePreciseWords)
    {
        LimitFixture f;
        f.fillMegabytes(60);

        f.fields.commit(maxTotalSizeMB, 55);
        ASSERT_EQ(f.alerts.asked.size(), 1U);
        const auto question = f.alerts.asked.front();
        EXPECT_EQ(question.message, "Reduce total size limit?");
        EXPECT_EQ(question.informativeText,
            "Oldest unpinned clips will be deleted until the history fits within 55 MB. This "
            "cannot "
            "be undone.");
        EXPECT_EQ(question.kind, Alert::Kind::warning);
        EXPECT_EQ(question.buttons, (std::vector<std::string> { "Apply", "Cancel" }));
        EXPECT_EQ(question.suppression, "Don't show again");

        f.alerts.cancel();
        EXPECT_EQ(f.fields.value(maxTotalSizeMB), 500);
        f.fields.commit(maxTotalSizeMB, 55);
        f.alerts.agree();
        EXPECT_EQ(f.store->maxTotalSizeMB(), 55);
        EXPECT_EQ(f.texts(), std::vector<std::string> { "small" });
    }

    TEST(LimitFieldsTest, AFieldWithoutANumberGetsItsOldOneBack)
    {
        LimitFixture f;
        f.fields.commit(maxClips, 700);
        int told = 0;
        const auto connection = f.fields.settled.connect([&](LimitField field) {
            EXPECT_EQ(field, maxClips);
            ++told;
        });

        f.fields.commit(maxClips, std::nullopt);

        EXPECT_EQ(f.fields.value(maxClips), 700);
        EXPECT_EQ(f.store->maxClips(), 700);
        EXPECT_EQ(told, 1);
    }

    TEST(LimitFieldsTest, ANumberThatIsClampedToWhatItWasIsToldToTheFieldAllTheSame)
    {
        LimitFixture f;
        f.fields.commit(maxClips, 50);
        int told = 0;
        const auto connection = f.fields.settled.connect([&](LimitField) { ++told; });

        f.fields.commit(maxClips, 20);

        EXPECT_EQ(told, 1);
    }

    TEST(LimitFieldsTest, WhileAQuestionIsOpenNothingElseIsCommitted)
    {
        LimitFixture f;
        f.fill(60);
        f.fields.commit(maxClips, 55);

        f.fields.commit(maxClips, 52);
        f.fields.commit(maxClipSizeKB, 100);
        f.alerts.agree();

        EXPECT_EQ(f.alerts.asked.size(), 1U);
        EXPECT_EQ(f.store->maxClips(), 55);
        EXPECT_EQ(f.store->maxClipSizeKB(), 64);
    }

    TEST(LimitFieldsTest, AnAnswerThatComesAfterTheEndMeansNothing)
    {
        LimitFixture f;
        f.fill(60);
        f.fields.commit(maxClips, 55);

        f.made.reset();
        f.alerts.agree(true);

        EXPECT_EQ(f.store->maxClips(), 500);
        EXPECT_FALSE(f.preferences.get(keys::skipMaxClipsWarning));
    }

} // namespace
} // namespace korvane
