#include "model/Classifier.h"

#include "model/ByteSearch.h"
#include "model/Text.h"
#include "model/Utf8.h"

#include <unicode/uchar.h>
#include <unicode/uniset.h>

#include <algorithm>
#include <array>
#include <cassert>
#include <string>

namespace korvane {
namespace {

    bool contains(std::string_view text, std::string_view part)
    {
        return findBytes(text, part) != std::string_view::npos;
    }

    bool isUrl(std::string_view text)
    {
        return text.starts_with("http://") || text.starts_with("https://");
    }

    bool isEmail(std::string_view text)
    {
        constexpr std::size_t tooManyCharacters = 254;
        return contains(text, "@") && contains(text, ".") && !contains(text, " ")
            && characterCount(text, tooManyCharacters) < tooManyCharacters;
    }

    bool isAsciiLetter(char c)
    {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    }

    // Whether an opening or closing tag begins anywhere: the expression </?[a-zA-Z][a-zA-Z0-9]*, of
    // which the last part may match nothing.
    bool hasTag(std::string_view text)
    {
        for (auto at = text.find('<'); at != std::string_view::npos; at = text.find('<', at + 1)) {
            const auto name = at + (text.substr(at + 1).starts_with('/') ? 2 : 1);
            if (name < text.size() && isAsciiLetter(text[name]))
                return true;
        }
        return false;
    }

    bool isMarkup(std::string_view text)
    {
        return contains(text, "<") && contains(text, ">") && hasTag(text);
    }

    bool hasCodeMarker(std::string_view text)
    {
        static constexpr std::array<std::string_view, 5> markers { "{", "}", " -> ", " => ",
            "#include" };
        return std::ranges::any_of(
            markers, [text](std::string_view marker) { return contains(text, marker); });
    }

    // The last two match only where a word follows the parenthesis directly, deliberately: the
    // boundary is asked for after it as after the others.
    bool hasTwoKeywords(std::string_view text)
    {
        static constexpr std::array<std::string_view, 11> keywords { "func", "def", "const", "let",
            "class", "import", "public", "private", "return", "if (", "for (" };
        return std::ranges::count_if(keywords, [text](std::string_view keyword) {
            return containsWord(text, keyword);
        }) >= 2;
    }

    // The code points that make a text one with an emoji. Which blocks of 256 hold any is kept
    // beside, because most writing systems lie in blocks that hold none.
    class EmojiSet {
    public:
        EmojiSet()
        {
            auto error = U_ZERO_ERROR;
            m_set.applyPattern(u"[[:Emoji_Presentation:][[:Emoji:]-[\\u0000-\\u238C]]]", error);
            assert(U_SUCCESS(error)); // the pattern is a constant
            m_set.freeze();
            for (std::size_t block = 0; block < m_hasBlock.size(); ++block) {
                const auto first = static_cast<UChar32>(block * blockSize);
                m_hasBlock[block]
                    = m_set.containsSome(first, first + static_cast<UChar32>(blockSize) - 1) != 0;
            }
        }

        bool contains(char32_t value) const
        {
            return m_hasBlock[value / blockSize]
                && m_set.contains(static_cast<UChar32>(value)) != 0;
        }

    private:
        static constexpr std::size_t blockSize = 256;
        icu::UnicodeSet m_set;
        std::array<bool, 0x110000 / blockSize> m_hasBlock {};
    };

} // namespace

ClipType classifyContent(std::string_view text)
{
    const auto content = trimmed(text);
    if (isUrl(content))
        return ClipType::url;
    if (isEmail(content))
        return ClipType::email;
    if (isMarkup(content) || hasCodeMarker(content) || hasTwoKeywords(content))
        return ClipType::code;
    return ClipType::plainText;
}

bool containsEmoji(std::string_view text)
{
    static const EmojiSet emoji;
    if (!isValidUtf8(text))
        return containsEmoji(repairedUtf8(std::string(text)));
    for (auto at = endOfAscii(text); at < text.size(); at = endOfAscii(text, at)) {
        while (at < text.size() && static_cast<unsigned char>(text[at]) >= 0x80) {
            const auto codePoint = codePointOfWellFormed(text, at);
            if (emoji.contains(codePoint.value))
                return true;
            at += codePoint.size;
        }
    }
    return false;
}

} // namespace korvane
