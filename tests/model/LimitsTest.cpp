#include "model/Limits.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <vector>

namespace korvane {
namespace {

    constexpr std::int64_t mebibyte = 1024L * 1024;

    /// An overflow clip, which may weigh anything.
    ClipItem clipOf(std::int64_t bytes, bool isPinned = false)
    {
        ClipItem clip;
        clip.isOverflow = true;
        clip.overflowByteCount = bytes;
        clip.isPinned = isPinned;
        return clip;
    }

    /// Eviction as one would tell it: as long as a limit is broken, the lowest unpinned clip goes.
    std::vector<std::int64_t> keptOneByOne(std::vector<ClipItem> clips, const Limits& limits)
    {
        const auto isWithin = [&] {
            return static_cast<std::int64_t>(clips.size()) <= limits.maxClips
                && totalBytes(clips) <= limits.maxTotalSizeMB * mebibyte;
        };
        while (!isWithin()) {
            auto lowest = clips.end();
            for (auto clip = clips.begin(); clip != clips.end(); ++clip) {
                if (!clip->isPinned)
                    lowest = clip;
            }
            if (lowest == clips.end())
                break;
            clips.erase(lowest);
        }
        std::vector<std::int64_t> kept;
        kept.reserve(clips.size());
        for (const auto& clip : clips)
            kept.push_back(clip.useCount);
        return kept;
    }

    std::vector<std::int64_t> keptAtOnce(const std::vector<ClipItem>& clips, const Limits& limits)
    {
        std::vector<std::int64_t> kept;
        const auto start = evictionStart(clips, limits);
        for (std::size_t i = 0; i < clips.size(); ++i) {
            if (clips[i].isPinned || i < start)
                kept.push_back(clips[i].useCount);
        }
        return kept;
    }

    TEST(LimitsTest, AnOrdinaryClipWeighsItsTextInBytes)
    {
        ClipItem clip;
        clip.text = "é";
        clip.overflowByteCount = 100; // means nothing without an overflow file

        EXPECT_EQ(totalBytes(std::vector { clip, clip }), 4);
    }

    TEST(LimitsTest, AnOverflowClipWeighsItsWholeContentOrNothingWhenThatIsUnknown)
    {
        auto clip = clipOf(1000);
        clip.text = "preview";
        auto unknown = clip;
        unknown.overflowByteCount.reset();

        EXPECT_EQ(totalBytes(std::vector { clip, unknown }), 1000);
    }

    TEST(LimitsTest, SizesThatOnlyADamagedHistoryCanHoldDoNotOverflow)
    {
        constexpr auto largest = std::numeric_limits<std::int64_t>::max();

        EXPECT_EQ(totalBytes(std::vector { clipOf(largest), clipOf(largest), clipOf(1) }), largest);
        EXPECT_EQ(
            totalBytes(std::vector { clipOf(std::numeric_limits<std::int64_t>::min()), clipOf(5) }),
            5);
        EXPECT_EQ(
            evictionStart(std::vector { clipOf(1), clipOf(largest), clipOf(largest) }, {}), 1U);
    }

    TEST(LimitsTest, ALimitThatIsJustReachedEvictsNothing)
    {
        const std::vector clips { clipOf(mebibyte - 1), clipOf(1) };

        EXPECT_EQ(evictionStart(clips, { .maxClips = 2, .maxTotalSizeMB = 1 }), clips.size());
        EXPECT_EQ(evictionStart(clips, { .maxClips = 1, .maxTotalSizeMB = 1 }), 1U);
    }

    TEST(LimitsTest, WithoutRoomForThePinnedClipsAllOthersGo)
    {
        const std::vector clips { clipOf(1), clipOf(2 * mebibyte, true), clipOf(0) };

        EXPECT_EQ(evictionStart(clips, { .maxTotalSizeMB = 1 }), 0U);
        EXPECT_EQ(evictionStart(clips, { .maxClips = 0 }), 0U);
    }

    TEST(LimitsTest, OnePassEvictsWhatRemovingOneByOneWould)
    {
        std::mt19937 random(6);
        for (int round = 0; round < 3000; ++round) {
            std::vector<ClipItem> clips;
            for (auto count = random() % 12; count > 0; --count) {
                clips.push_back(clipOf(random() % 4 * mebibyte / 2, random() % 3 == 0));
                clips.back().useCount = static_cast<std::int64_t>(count); // to tell them apart
            }
            const Limits limits { .maxClips = static_cast<int>(random() % 12),
                .maxTotalSizeMB = static_cast<int>(random() % 8) };

            EXPECT_EQ(keptAtOnce(clips, limits), keptOneByOne(clips, limits));
        }
    }

} // namespace
} // namespace korvane
