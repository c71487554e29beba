#pragma once

#include "model/MainLoop.h"

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

/// What kind of content a clip holds; set once, at capture.
enum class ClipType { plainText, url, email, code, file };

/// All of them, in their order.
inline constexpr std::array allClipTypes { ClipType::plainText, ClipType::url, ClipType::email,
    ClipType::code, ClipType::file };

/// The name of the type on disk, which is the name of the enumerator.
std::string_view rawValue(ClipType type);
std::optional<ClipType> clipTypeFrom(std::string_view rawValue);

/// Identity of a clip: a UUID (RFC 9562).
struct ClipId {
    std::array<std::uint8_t, 16> bytes {};

    /// A new random one (version 4).
    static ClipId random();
    /// Reads the 36-character hyphenated form, in either letter case.
    static std::optional<ClipId> parse(std::string_view text);
    /// The 36-character hyphenated form, in upper case: also the name of the overflow file.
    std::string text() const;

    friend auto operator<=>(const ClipId&, const ClipId&) = default;
};

/// One entry of the clipboard history. Texts are UTF-8.
struct ClipItem {
    ClipId id;
    /// The content; of an overflow clip only its beginning, of a file clip the file's path.
    std::string text;
    ClipType type = ClipType::plainText;
    /// Name of the application that was in front when the clip was captured.
    std::optional<std::string> sourceApp;
    TimePoint createdAt {};
    bool isPinned = false;
    /// A title that the user gave; never empty.
    std::optional<std::string> customName;
    /// How often the clip was put back from the panel.
    std::int64_t useCount = 0;
    /// The whole content lies in a file of its own, and `text` is only its beginning.
    bool isOverflow = false;
    /// Absolute path of that file.
    std::optional<std::string> overflowPath;
    /// Size of the whole content of an overflow clip, in bytes of UTF-8.
    std::optional<std::int64_t> overflowByteCount;
    bool hasEmoji = false;

    /// Clips are equal when their identifiers are, whatever else differs: deliberately.
    friend bool operator==(const ClipItem& a, const ClipItem& b) { return a.id == b.id; }
};

/// The age of a clip in words: "just now", then whole minutes ("59m"), hours ("23h") or days ("365d").
std::string relativeAge(const ClipItem& clip, TimePoint now);

} // namespace korvane

template <>
struct std::hash<korvane::ClipId> {
    std::size_t operator()(const korvane::ClipId& id) const noexcept
    {
        return std::hash<std::string_view> {}(
            { reinterpret_cast<const char*>(id.bytes.data()), id.bytes.size() });
    }
};

template <>
struct std::hash<korvane::ClipItem> {
    std::size_t operator()(const korvane::ClipItem& clip) const noexcept
    {
        return std::hash<korvane::ClipId> {}(clip.id);
    }
};
