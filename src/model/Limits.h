#pragma once

#include "model/ClipItem.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace korvane {

class Preferences;

/// The three limits of the history.
struct Limits {
    /// Most clips kept.
    int maxClips = 500;
    /// A text above so many KiB (1024 bytes) goes to a file of its own.
    int maxClipSizeKB = 64;
    /// Most MiB (1,048,576 bytes) kept.
    int maxTotalSizeMB = 500;

    friend bool operator==(const Limits&, const Limits&) = default;
};

/// Reads the limits, with the defaults above for what is absent, wrong or below 1. A size limit that
/// an earlier version stored in MiB is taken over, and its key removed; the new key is deliberately
/// not written until the limit is next set. A number too large for the field becomes the largest.
Limits readLimits(Preferences& preferences);

/// Takes over what the preferences say now, after a change of them. A limit that is not stored stays
/// as it is: a file that was broken by hand, or is being written anew, must not cost the history.
void followPreferences(const Preferences& preferences, Limits& limits);

/// What counts against the total size, in bytes: of an overflow clip its whole content. Stops at the
/// largest number, and a negative size, which only a damaged history can hold, counts nothing.
std::int64_t totalBytes(std::span<const ClipItem> clips);

/// From which index on the unpinned clips must go for the limits to hold: the size of the list when
/// none must, 0 when not even all of them would be enough. Pinned clips always stay.
std::size_t evictionStart(std::span<const ClipItem> clips, const Limits& limits);

} // namespace korvane
