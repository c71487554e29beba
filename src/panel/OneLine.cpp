#include "panel/OneLine.h"

#include "model/Text.h"
#include "model/Utf8.h"
#include "panel/VisibleText.h"

#include <limits>

namespace korvane {

namespace {

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
        forEachCodePoint(text, [&line](char32_t value) { appendInvisible(line, value); });
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
            appendVisibly(line, value);
        });
        return line;
    }

} // namespace

std::string onOneLine(std::string_view text)
{
    const bool isBlankText = showsNothing(text);
    const auto whole = isBlankText ? text : trimmed(text);
    const auto shown
        = whole.substr(0, shownBytes(whole, std::numeric_limits<int>::max(), maxBytesOnOneLine));
    auto line = isBlankText ? blanksMadeVisible(shown) : linesJoined(shown);
    if (shown.size() < whole.size())
        line += "…";
    return line;
}

} // namespace korvane
