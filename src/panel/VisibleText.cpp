#include "panel/VisibleText.h"

#include "model/ByteSearch.h"
#include "model/Text.h"
#include "model/Utf8.h"

#include <array>
#include <cstdio>

namespace korvane {

namespace {

    bool isC0(char32_t value)
    {
        return value < 0x20;
    }
    bool isC1(char32_t value)
    {
        return value >= 0x80 && value < 0xA0;
    }
    bool isDirectionOverride(char32_t value)
    {
        return value == U'\u202D' || value == U'\u202E';
    }

    void appendNumber(std::string& text, char32_t value)
    {
        std::array<char, sizeof "<U+10FFFF>"> written {};
        const int size = std::snprintf(
            written.data(), written.size(), "<U+%04X>", static_cast<unsigned>(value));
        text.append(written.data(), static_cast<std::size_t>(size));
    }

} // namespace

bool isLineEnd(char32_t value)
{
    return (value >= U'\n' && value <= U'\r') || value == U'\u0085' || value == U'\u2028'
        || value == U'\u2029';
}

void appendVisibly(std::string& text, char32_t value)
{
    if (isC0(value) || value == 0x7F) {
        text += '^';
        text += static_cast<char>(value ^ 0x40U); // the letter on whose key Ctrl gives it
    } else if (isDirectionOverride(value)) {
        appendNumber(text, value);
    } else {
        appendUtf8(text, isC1(value) ? replacementCharacter : value);
    }
}

bool showsNothing(std::string_view text)
{
    for (auto at = endOfAsciiBlanks(text); at < text.size();) {
        const auto codePoint = codePointAt(text, at);
        if (!isIgnorable(codePoint.value) && !isBlank(text.substr(at, codePoint.size)))
            return false;
        at += codePoint.size;
    }
    return true;
}

void appendInvisible(std::string& text, char32_t value)
{
    if (isIgnorable(value))
        appendNumber(text, value);
    else if (isLineEnd(value))
        text += "↵";
    else
        text += value == U'\t' ? "⇥" : "␣";
}

std::size_t shownBytes(std::string_view text, int maxLines, int maxBytes)
{
    const auto whole = overflowPreview(text, maxLines, maxBytes).size();
    if (whole > 0)
        return whole;
    constexpr int fewCodePoints = 6;
    std::size_t cut = 0;
    for (int left = fewCodePoints; left > 0 && cut < text.size(); --left)
        cut += codePointAt(text, cut).size;
    return cut;
}

} // namespace korvane
