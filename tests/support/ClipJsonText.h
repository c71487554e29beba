#pragma once

#include "model/ClipItem.h"
#include "model/ClipJson.h"
#include "model/Files.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane::test {

inline std::string encoded(const std::vector<ClipItem>& clips)
{
    std::string json;
    encodeClips(clips, [&](std::string_view block) { json += block; });
    return json;
}

inline std::optional<std::vector<ClipItem>> decoded(std::string_view json)
{
    const auto document = FileBytes::copyOf(json);
    return document ? decodeClips(*document) : std::nullopt;
}

/// The required keys of a record, with values as they may stand in a file.
inline constexpr std::array<std::pair<std::string_view, std::string_view>, 6> required {
    { { "id", R"("0A1B2C3D-1111-2222-3333-444455556666")" }, { "text", R"("text")" },
        { "type", R"("plainText")" }, { "createdAt", R"("2024-05-01T12:34:56Z")" },
        { "isPinned", "false" }, { "useCount", "0" } }
};

/// A record of the required keys, one of them with a value of its own, followed by other members.
inline std::string recordWith(
    std::string_view key, std::string_view value, std::string_view members = {})
{
    std::string record;
    for (const auto& [name, usual] : required) {
        record += record.empty() ? "{\"" : ",\"";
        record.append(name).append("\":").append(name == key ? value : usual);
    }
    return record.append(members) + "}";
}

inline std::string record(std::string_view members)
{
    return recordWith({}, {}, members);
}
inline std::string listOf(std::string_view members)
{
    return "[" + record(members) + "]";
}
inline std::string listWith(std::string_view key, std::string_view value)
{
    return "[" + recordWith(key, value) + "]";
}

/// A record that lacks one of the required keys: another, unknown one stands in its place.
inline std::string listWithout(std::string_view key)
{
    auto list = listOf({});
    return list.replace(list.find(key), key.size(), "unknown");
}

/// Appends one code point. @param c  no surrogate
inline void appendUtf8(std::string& text, char32_t c)
{
    const auto byte = [&](char32_t bits) { text += static_cast<char>(bits); };
    const auto tail = [&](int shift) { byte(0x80 | (c >> shift & 0x3F)); };
    if (c < 0x80)
        return byte(c);
    if (c < 0x800) {
        byte(0xC0 | c >> 6);
    } else {
        if (c < 0x10000) {
            byte(0xE0 | c >> 12);
        } else {
            byte(0xF0 | c >> 18);
            tail(12);
        }
        tail(6);
    }
    tail(0);
}

} // namespace korvane::test
