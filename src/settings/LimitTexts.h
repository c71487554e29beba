#pragma once

#include "model/Alerts.h"

#include <cstdint>
#include <string_view>

namespace korvane {

/// Every text of the three limits.
namespace limittexts {
    inline constexpr std::string_view maxClips = "Max clips:";
    inline constexpr std::string_view maxClipSize = "Max clip size (KB):";
    inline constexpr std::string_view maxClipSizeToolTip
        = "Clips larger than this are stored on disk as a preview + file. Full content is loaded "
          "on "
          "paste. Lower values keep the panel snappier on large pastes.";
    inline constexpr std::string_view maxTotalSize = "Max total size (MB):";
    inline constexpr std::string_view maxTotalSizeToolTip
        = "Total clipboard history size. Oldest unpinned clips are removed when this is exceeded.";

    /// Before a number of clips that is lower than there are.
    /// @param excess  how many clips there are above it; pinned ones count too, deliberately: it is
    ///                the most that can go
    Alert reduceClipLimit(std::int64_t excess);
    /// Before a total size, in MiB, that is smaller than the history.
    Alert reduceTotalSizeLimit(int megabytes);
} // namespace limittexts

} // namespace korvane
