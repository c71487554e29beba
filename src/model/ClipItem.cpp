#include "model/ClipItem.h"

#include <sys/random.h>

#include <algorithm>
#include <cstdlib>

namespace korvane {

namespace {

    constexpr std::string_view hexDigits = "0123456789ABCDEF";
    constexpr std::size_t uuidLength = 36;

    // Where the two digits of each byte stand; the hyphens fill the gaps.
    constexpr std::array<std::size_t, 16> bytePlaces { 0, 2, 4, 6, 9, 11, 14, 16, 19, 21, 24, 26,
        28, 30, 32, 34 };
    constexpr std::array<std::size_t, 4> hyphenPlaces { 8, 13, 18, 23 };

    // Far above any digit, so that one test after all digits tells whether each of them was one.
    constexpr unsigned notADigit = 0x100;

    constexpr unsigned hexValue(char c)
    {
        if (c >= '0' && c <= '9')
            return static_cast<unsigned>(c - '0');
        if (c >= 'A' && c <= 'F')
            return static_cast<unsigned>(c - 'A') + 10;
        if (c >= 'a' && c <= 'f')
            return static_cast<unsigned>(c - 'a') + 10;
        return notADigit;
    }

    constexpr auto hexValues = [] {
        std::array<unsigned, 256> values {};
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = hexValue(static_cast<char>(i));
        return values;
    }();

} // namespace

std::string_view rawValue(ClipType type)
{
    switch (type) {
    case ClipType::plainText:
        return "plainText";
    case ClipType::url:
        return "url";
    case ClipType::email:
        return "email";
    case ClipType::code:
        return "code";
    case ClipType::file:
        return "file";
    }
    return {};
}

std::optional<ClipType> clipTypeFrom(std::string_view rawValue)
{
    const auto* const found = std::find_if(allClipTypes.begin(), allClipTypes.end(),
        [&](ClipType type) { return korvane::rawValue(type) == rawValue; });
    return found == allClipTypes.end() ? std::nullopt : std::optional(*found);
}

ClipId ClipId::random()
{
    ClipId id;
    // Sixteen bytes come whole or not at all, and only a kernel without the call refuses them; an
    // identifier that is not random would let one clip's file replace another's.
    if (::getrandom(id.bytes.data(), id.bytes.size(), 0) != static_cast<ssize_t>(id.bytes.size()))
        std::abort();
    id.bytes[6] = static_cast<std::uint8_t>((id.bytes[6] & 0x0F) | 0x40); // version 4 (RFC 9562)
    id.bytes[8] = static_cast<std::uint8_t>((id.bytes[8] & 0x3F) | 0x80); // its variant
    return id;
}

std::optional<ClipId> ClipId::parse(std::string_view text)
{
    if (text.size() != uuidLength)
        return std::nullopt;
    for (const auto place : hyphenPlaces) {
        if (text[place] != '-')
            return std::nullopt;
    }
    ClipId id;
    unsigned all = 0;
    for (std::size_t i = 0; i < bytePlaces.size(); ++i) {
        const auto high = hexValues[static_cast<unsigned char>(text[bytePlaces[i]])];
        const auto low = hexValues[static_cast<unsigned char>(text[bytePlaces[i] + 1])];
        all |= high | low;
        id.bytes[i] = static_cast<std::uint8_t>(high << 4 | low);
    }
    return all < notADigit ? std::optional(id) : std::nullopt;
}

std::string ClipId::text() const
{
    std::string text(uuidLength, '-');
    for (std::size_t i = 0; i < bytePlaces.size(); ++i) {
        text[bytePlaces[i]] = hexDigits[bytes[i] >> 4];
        text[bytePlaces[i] + 1] = hexDigits[bytes[i] & 0x0F];
    }
    return text;
}

std::string relativeAge(const ClipItem& clip, TimePoint now)
{
    using namespace std::chrono_literals;
    const auto age = now - clip.createdAt;
    if (age < 1min)
        return "just now"; // also a clip from the future
    if (age < 1h)
        return std::to_string(age / 1min) + "m";
    if (age < 24h)
        return std::to_string(age / 1h) + "h";
    return std::to_string(age / 24h) + "d";
}

} // namespace korvane
