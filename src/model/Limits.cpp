#include "model/Limits.h"

#include "model/Preferences.h"

#include <algorithm>
#include <limits>

namespace korvane {

namespace {

    constexpr std::int64_t kibibytesInMebibyte = 1024;
    constexpr std::int64_t bytesInMebibyte = 1024L * 1024;
    constexpr std::int64_t largestCount = std::numeric_limits<std::int64_t>::max();

    int saturated(std::int64_t number)
    {
        return static_cast<int>(std::min<std::int64_t>(number, std::numeric_limits<int>::max()));
    }

    int positiveOr(std::int64_t stored, int otherwise)
    {
        return stored >= 1 ? saturated(stored) : otherwise;
    }

    int readMaxClipSizeKB(Preferences& preferences)
    {
        const auto stored = preferences.integer(keys::maxClipSizeKB);
        if (stored >= 1)
            return saturated(stored);
        const auto megabytes = preferences.integer(keys::maxClipSizeMB);
        if (megabytes < 1)
            return Limits().maxClipSizeKB;
        preferences.remove(keys::maxClipSizeMB);
        return saturated(
            std::min(megabytes, largestCount / kibibytesInMebibyte) * kibibytesInMebibyte);
    }

    std::int64_t weight(const ClipItem& clip)
    {
        return clip.isOverflow ? std::max<std::int64_t>(clip.overflowByteCount.value_or(0), 0)
                               : static_cast<std::int64_t>(clip.text.size());
    }

    /// Both are 0 or more.
    std::int64_t saturatedSum(std::int64_t a, std::int64_t b)
    {
        return a > largestCount - b ? largestCount : a + b;
    }

} // namespace

Limits readLimits(Preferences& preferences)
{
    Limits limits;
    limits.maxClipSizeKB = readMaxClipSizeKB(preferences);
    followPreferences(preferences, limits);
    return limits;
}

void followPreferences(const Preferences& preferences, Limits& limits)
{
    limits.maxClips = positiveOr(preferences.integer(keys::maxClips), limits.maxClips);
    limits.maxClipSizeKB
        = positiveOr(preferences.integer(keys::maxClipSizeKB), limits.maxClipSizeKB);
    limits.maxTotalSizeMB
        = positiveOr(preferences.integer(keys::maxTotalSizeMB), limits.maxTotalSizeMB);
}

std::int64_t totalBytes(std::span<const ClipItem> clips)
{
    std::int64_t sum = 0;
    for (const auto& clip : clips)
        sum = saturatedSum(sum, weight(clip));
    return sum;
}

std::size_t evictionStart(std::span<const ClipItem> clips, const Limits& limits)
{
    std::int64_t count = 0;
    std::int64_t bytes = 0;
    const auto isWithin = [&] {
        return count <= limits.maxClips && bytes <= limits.maxTotalSizeMB * bytesInMebibyte;
    };
    const auto take = [&](const ClipItem& clip) {
        ++count;
        bytes = saturatedSum(bytes, weight(clip));
    };
    // The pinned ones stay in any case; of the others as many of the upper ones as there is room
    // for. That is what removing the lowest again and again comes to, in one pass.
    for (const auto& clip : clips) {
        if (clip.isPinned)
            take(clip);
    }
    if (!isWithin())
        return 0;
    for (std::size_t i = 0; i < clips.size(); ++i) {
        if (clips[i].isPinned)
            continue;
        take(clips[i]);
        if (!isWithin())
            return i;
    }
    return clips.size();
}

} // namespace korvane
