#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace korvane {

/// The keys of a clip's record in a file, in the order in which they are written.
struct ClipKeys {
    enum Key : std::size_t {
        id,
        text,
        type,
        sourceApp,
        createdAt,
        isPinned,
        customName,
        useCount,
        isOverflow,
        overflowPath,
        overflowByteCount,
        hasEmoji
    };
    static constexpr std::array<std::string_view, 12> names { "id", "text", "type", "sourceApp",
        "createdAt", "isPinned", "customName", "useCount", "isOverflow", "overflowPath",
        "overflowByteCount", "hasEmoji" };
};

} // namespace korvane
