#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace korvane {

/// What an ill-formed piece of UTF-8 is read as.
inline constexpr char32_t replacementCharacter = 0xFFFD;

/// One code point of a text, and the number of bytes that it takes there.
struct CodePoint {
    char32_t value = replacementCharacter;
    std::uint32_t size = 1;
    bool isWellFormed = false;
};

/// Whether the byte is one of those that follow the first of a code point.
constexpr bool isContinuationByte(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// The code point that begins at `index`, which must lie in the text. Where the text is ill-formed,
/// the longest piece that could have begun a code point is read as one replacement character, as
/// the Unicode Standard recommends ("maximal subpart", section 3.9, table 3-7).
inline CodePoint codePointAt(std::string_view utf8, std::size_t index)
{
    const auto byte = [utf8, index](std::size_t offset) -> char32_t {
        return index + offset < utf8.size() ? static_cast<unsigned char>(utf8[index + offset]) : 0U;
    };
    const auto illFormed = [](std::uint32_t size) {
        return CodePoint { replacementCharacter, size, false };
    };
    const auto lead = byte(0);
    if (lead < 0x80)
        return { lead, 1, true };
    if (lead < 0xC2 || lead > 0xF4)
        return illFormed(1);
    // The second byte alone rules out overlong forms, surrogates and what lies above U+10FFFF.
    const char32_t lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const char32_t highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    const auto second = byte(1);
    if (second < lowest || second > highest)
        return illFormed(1);
    if (lead < 0xE0)
        return { (lead & 0x1FU) << 6U | (second & 0x3FU), 2, true };
    const auto third = byte(2);
    if ((third & 0xC0U) != 0x80)
        return illFormed(2);
    if (lead < 0xF0)
        return { (lead & 0x0FU) << 12U | (second & 0x3FU) << 6U | (third & 0x3FU), 3, true };
    const auto fourth = byte(3);
    if ((fourth & 0xC0U) != 0x80)
        return illFormed(3);
    return { (lead & 0x07U) << 18U | (second & 0x3FU) << 12U | (third & 0x3FU) << 6U
            | (fourth & 0x3FU),
        4, true };
}

/// The same for text that is known to be well-formed, in half the time.
inline CodePoint codePointOfWellFormed(std::string_view utf8, std::size_t index)
{
    const auto* bytes = utf8.data() + index;
    const auto lead = static_cast<unsigned char>(*bytes);
    const auto tail = [bytes](std::size_t offset) -> char32_t {
        return static_cast<unsigned char>(bytes[offset]) & 0x3FU;
    };
    if (lead < 0x80)
        return { lead, 1, true };
    if (lead < 0xE0)
        return { (lead & 0x1FU) << 6U | tail(1), 2, true };
    if (lead < 0xF0)
        return { (lead & 0x0FU) << 12U | tail(1) << 6U | tail(2), 3, true };
    return { (lead & 0x07U) << 18U | tail(1) << 12U | tail(2) << 6U | tail(3), 4, true };
}

/// The code point that ends at `index`, which must not be 0.
inline CodePoint codePointBefore(std::string_view utf8, std::size_t index)
{
    for (std::uint32_t size = 1; size <= 4 && size <= index; ++size) {
        if (isContinuationByte(utf8[index - size]))
            continue;
        const auto found = codePointAt(utf8, index - size);
        return found.size == size ? found : CodePoint {};
    }
    return CodePoint {};
}

/// Appends a code point, which must be a Unicode scalar value.
inline void appendUtf8(std::string& text, char32_t value)
{
    const auto add = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (value < 0x80) {
        add(value);
    } else if (value < 0x800) {
        add(0xC0U | value >> 6U);
        add(0x80U | (value & 0x3FU));
    } else if (value < 0x10000) {
        add(0xE0U | value >> 12U);
        add(0x80U | (value >> 6U & 0x3FU));
        add(0x80U | (value & 0x3FU));
    } else {
        add(0xF0U | value >> 18U);
        add(0x80U | (value >> 12U & 0x3FU));
        add(0x80U | (value >> 6U & 0x3FU));
        add(0x80U | (value & 0x3FU));
    }
}

} // namespace korvane
