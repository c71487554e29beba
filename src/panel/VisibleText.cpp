#include "panel/VisibleText.h"

#include "model/Text.h"
#include "model/Utf8.h"

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

} // namespace

bool isLineEnd(char32_t value)
{
    return (value >= U'\n' && value <= U'\r') || value == U'\u0085' || value == U'\u2028'
        || value == U'\u2029';
}

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

char32_t visibleBlank(char32_t value)
{
    if (isLineEnd(value))
        return U'↵';
    return value == U'\t' ? U'⇥' : U'␣';
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
