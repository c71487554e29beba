#include "panel/OneLine.h"

#include "model/Text.h"
#include "model/Utf8.h"

#include <algorithm>
#include <limits>

namespace korvane {

namespace {

    bool isLineEnd(char32_t value)
    {
        return (value >= U'\n' && value <= U'\r') || value == U'\u0085' || value == U'\u2028'
            || value == U'\u2029';
    }

    bool isC0(char32_t value)
    {
        return value < 0x20;
    }
    bool isC1(char32_t value)
    {
        return value >= 0x80 && value < 0xA0;
    }

    /// The character that stands for one that has no look of its own.
    char32_t visibleForm(char32_t value)
    {
        constexpr char32_t controlPictures = U'\u2400';
        constexpr char32_t deletePicture = U'\u2421';
        if (isC0(value))
            return controlPictures + value;
        if (value == 0x7F)
            return deletePicture;
        return isC1(value) ? replacementCharacter : value;
    }

    /// White space is made visible as proof-readers write it.
    char32_t visibleBlank(char32_t value)
    {
        if (isLineEnd(value))
            return U'↵';
        return value == U'\t' ? U'⇥' : U'␣';
    }

    /// The beginning of a text, cut between two characters; where a single one is longer than a
    /// line all by itself, after a few of its code points: a letter with hundreds of marks on it is a
    /// tower that no row has room for.
    std::string_view beginning(std::string_view text)
    {
        const auto whole
            = overflowPreview(text, std::numeric_limits<int>::max(), maxBytesOnOneLine).size();
        if (whole > 0)
            return text.substr(0, whole);
        constexpr int fewCodePoints = 6;
        std::size_t cut = 0;
        for (int left = fewCodePoints; left > 0 && cut < text.size(); --left)
            cut += codePointAt(text, cut).size;
        return text.substr(0, cut);
    }

    template <typename Take>
    void forEachCodePoint(std::string_view text, Take take)
    {
        for (std::size_t at = 0; at < text.size();) {
            const auto codePoint = codePointAt(text, at);
            take(codePoint.value);
            at += codePoint.size;
        }
    }

    std::string blanksMadeVisible(std::string_view text)
    {
        std::string line;
        forEachCodePoint(text, [&line](char32_t value) { appendUtf8(line, visibleBlank(value)); });
        return line;
    }

    std::string linesJoined(std::string_view text)
    {
        std::string line;
        std::size_t blanks = 0;
        bool isGap = false;
        forEachCodePoint(text, [&](char32_t value) {
            if (value == U' ' || value == U'\t' || isLineEnd(value)) {
                ++blanks;
                isGap = isGap || value != U' ';
                return;
            }
            line.append(isGap ? 1 : blanks, ' ');
            blanks = 0;
            isGap = false;
            appendUtf8(line, visibleForm(value));
        });
        return line;
    }

} // namespace

std::string onOneLine(std::string_view text)
{
    const auto rest = trimmed(text);
    const bool isBlankText = rest.empty();
    const auto shown = beginning(isBlankText ? text : rest);
    auto line = isBlankText ? blanksMadeVisible(shown) : linesJoined(shown);
    if (shown.size() < (isBlankText ? text : rest).size())
        line += "…";
    return line;
}

} // namespace korvane
