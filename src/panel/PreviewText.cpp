#include "panel/PreviewText.h"

#include "model/ClipItem.h"
#include "model/Text.h"
#include "model/Utf8.h"
#include "panel/VisibleText.h"

#include <string_view>

namespace korvane {

namespace {

    std::string madeVisible(std::string_view text)
    {
        const bool isBlankText = showsNothing(text);
        std::string result;
        result.reserve(text.size());
        for (std::size_t at = 0; at < text.size();) {
            const auto codePoint = codePointAt(text, at);
            at += codePoint.size;
            if (isBlankText)
                appendInvisible(result, codePoint.value);
            if (isLineEnd(codePoint.value)) {
                if (codePoint.value == U'\r' && at < text.size() && text[at] == '\n')
                    ++at; // the two are one line end
                result += '\n';
            } else if (!isBlankText) {
                if (codePoint.value == U'\t')
                    result += '\t';
                else
                    appendVisibly(result, codePoint.value);
            }
        }
        return result;
    }

} // namespace

PreviewText previewText(const ClipItem& clip)
{
    const std::string_view whole = clip.text;
    const auto shown = whole.substr(0, shownBytes(whole, maxPreviewLines, maxPreviewBytes));
    return { .text = madeVisible(shown),
        .isCode = clip.type == ClipType::code,
        .isCut = clip.isOverflow || shown.size() < whole.size() };
}

} // namespace korvane
