#include "model/Text.h"

#include "model/ByteSearch.h"
#include "model/CanonicalText.h"
#include "model/Utf8.h"

#include <simdjson.h>
#include <unicode/locid.h>
#include <unicode/ubrk.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utext.h>

#include <algorithm>
#include <cassert>
#include <memory>

namespace korvane {
namespace {

    bool isWhiteSpace(char32_t value)
    {
        return u_isUWhiteSpace(static_cast<UChar32>(value)) != 0;
    }

    // Walks over the characters of a text. Places are counted in bytes.
    class CharacterBreaks {
    public:
        explicit CharacterBreaks(std::string_view utf8)
        {
            auto error = U_ZERO_ERROR;
            m_text.reset(
                utext_openUTF8(nullptr, utf8.data(), static_cast<int64_t>(utf8.size()), &error));
            m_breaks.reset(ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &error));
            ubrk_setUText(m_breaks.get(), m_text.get(), &error);
            assert(U_SUCCESS(error)); // the rules are compiled into the library
        }

        /// Moves to the end of the next character; false at the end of the text.
        bool advance() { return ubrk_next(m_breaks.get()) != UBRK_DONE; }
        /// The last place not after `place`, which must be the beginning of a code point, where one
        /// character ends and another begins.
        std::size_t lastNotAfter(std::size_t place)
        {
            const auto offset = static_cast<int32_t>(place);
            return ubrk_isBoundary(m_breaks.get(), offset) != 0
                ? place
                : static_cast<std::size_t>(ubrk_preceding(m_breaks.get(), offset));
        }

    private:
        struct CloseText {
            void operator()(UText* text) const { utext_close(text); }
        };
        struct CloseBreaks {
            void operator()(UBreakIterator* breaks) const { ubrk_close(breaks); }
        };
        std::unique_ptr<UText, CloseText> m_text;
        std::unique_ptr<UBreakIterator, CloseBreaks> m_breaks;
    };

    bool extendsWord(char32_t value)
    {
        const auto c = static_cast<UChar32>(value);
        return value >= 0x80
            && (u_hasBinaryProperty(c, UCHAR_GRAPHEME_EXTEND) != 0
                || u_charType(c) == U_FORMAT_CHAR);
    }

    bool isWordCharacter(char32_t value)
    {
        constexpr char32_t zeroWidthNonJoiner = 0x200C;
        constexpr char32_t zeroWidthJoiner = 0x200D;
        const auto c = static_cast<UChar32>(value);
        return u_isUAlphabetic(c) != 0
            || (U_GET_GC_MASK(c) & (U_GC_M_MASK | U_GC_ND_MASK | U_GC_PC_MASK)) != 0
            || value == zeroWidthNonJoiner || value == zeroWidthJoiner;
    }

    bool isWordBoundary(std::string_view utf8, std::size_t place)
    {
        auto isWordAfter = false;
        if (place < utf8.size()) {
            const auto after = codePointAt(utf8, place).value;
            if (extendsWord(after))
                return false;
            isWordAfter = isWordCharacter(after);
        }
        while (place > 0) {
            const auto before = codePointBefore(utf8, place);
            if (!extendsWord(before.value))
                return isWordCharacter(before.value) != isWordAfter;
            place -= before.size;
        }
        return isWordAfter;
    }

    // The end of line number `lines`, counted as `overflowPreview` does; npos when there are fewer.
    std::size_t endOfLine(std::string_view text, int lines)
    {
        auto end = std::string_view::npos;
        for (std::size_t from = 0; lines > 0; from = end) {
            const auto lineFeed = text.find('\n', from);
            if (lineFeed == std::string_view::npos)
                return std::string_view::npos;
            end = lineFeed + 1;
            if (lineFeed == 0 || text[lineFeed - 1] != '\r')
                --lines;
        }
        return end;
    }

} // namespace

std::string_view trimmed(std::string_view utf8)
{
    utf8.remove_prefix(endOfAsciiBlanks(utf8)); // at once, as there may be megabytes of them
    utf8 = utf8.substr(0, beginOfAsciiBlanks(utf8));
    while (!utf8.empty()) {
        const auto first = codePointAt(utf8, 0);
        if (!isWhiteSpace(first.value))
            break;
        utf8.remove_prefix(first.size);
    }
    while (!utf8.empty()) {
        const auto last = codePointBefore(utf8, utf8.size());
        if (!isWhiteSpace(last.value))
            break;
        utf8.remove_suffix(last.size);
    }
    return utf8;
}

bool isIgnorable(char32_t codePoint)
{
    return u_hasBinaryProperty(static_cast<UChar32>(codePoint), UCHAR_DEFAULT_IGNORABLE_CODE_POINT);
}

bool isBlank(std::string_view utf8)
{
    return trimmed(utf8).empty();
}

bool isValidUtf8(std::string_view bytes)
{
    return simdjson::validate_utf8(bytes.data(), bytes.size());
}

std::string repairedUtf8(std::string bytes)
{
    if (!isValidUtf8(bytes)) {
        std::string repaired;
        repaired.reserve(bytes.size());
        for (std::size_t at = 0; at < bytes.size();) {
            const auto plain = endOfAscii(bytes, at);
            repaired.append(bytes, at, plain - at);
            at = plain;
            if (at == bytes.size())
                break;
            const auto next = codePointAt(bytes, at);
            appendUtf8(repaired, next.value);
            at += next.size;
        }
        bytes = std::move(repaired);
    }
    // Only now: a NUL amid the bytes of one character must not join them.
    if (bytes.find('\0') != std::string::npos)
        std::erase(bytes, '\0');
    return bytes;
}

std::string utf8FromLatin1(std::string_view latin1)
{
    std::string utf8;
    utf8.reserve(latin1.size());
    for (std::size_t at = 0; at < latin1.size();) {
        const auto plain = endOfAscii(latin1, at);
        utf8.append(latin1, at, plain - at);
        for (at = plain; at < latin1.size() && static_cast<unsigned char>(latin1[at]) >= 0x80; ++at)
            appendUtf8(utf8, static_cast<unsigned char>(latin1[at]));
    }
    std::erase(utf8, '\0');
    return utf8;
}

bool canonicallyEqual(std::string_view a, std::string_view b)
{
    if (a == b)
        return true;
    auto at = static_cast<std::size_t>(std::ranges::mismatch(a, b).in1 - a.begin());
    // Each further character makes the canonical form longer.
    if (at == a.size() || at == b.size())
        return false;
    while (at > 0 && (isContinuationByte(a[at]) || isContinuationByte(b[at])))
        --at;
    const auto& mapping = CanonicalMapping::of(Folding::none);
    const auto differingA = codePointAt(a, at).value;
    const auto differingB = codePointAt(b, at).value;
    // Nearly always: two characters that are what they are, whatever comes before or after.
    if (mapping.entry(differingA) == CanonicalMapping::unchanged
        && mapping.entry(differingB) == CanonicalMapping::unchanged)
        return false;
    while (at > 0
        && (mapping.firstClass(codePointAt(a, at).value) != 0
            || mapping.firstClass(codePointAt(b, at).value) != 0))
        at -= codePointBefore(a, at).size;
    return canonicalForm(a.substr(at), Folding::none) == canonicalForm(b.substr(at), Folding::none);
}

std::string upperCased(std::string_view utf8)
{
    std::string result;
    return icu::UnicodeString::fromUTF8({ utf8.data(), static_cast<int32_t>(utf8.size()) })
        .toUpper(icu::Locale::getRoot())
        .toUTF8String(result);
}

std::size_t characterCount(std::string_view utf8, std::size_t limit)
{
    CharacterBreaks breaks(utf8);
    std::size_t count = 0;
    while (count < limit && breaks.advance())
        ++count;
    return count;
}

bool containsWord(std::string_view utf8, std::string_view word)
{
    for (auto at = findBytes(utf8, word); at != std::string_view::npos;
         at = findBytes(utf8, word, at + 1)) {
        if (isWordBoundary(utf8, at) && isWordBoundary(utf8, at + word.size()))
            return true;
    }
    return false;
}

std::string overflowPreview(std::string_view text, int maxLines, int maxBytes)
{
    const auto limit = static_cast<std::size_t>(std::max(maxBytes, 0));
    // Line feeds are characters of their own wherever they stand (but for the pair above), so only
    // the one end that the byte limit makes needs to be looked at.
    const auto end = endOfLine(text.substr(0, limit), std::max(maxLines, 1));
    if (end != std::string_view::npos)
        return std::string(text.substr(0, end));
    if (text.size() <= limit)
        return std::string(text);
    auto cut = limit;
    while (cut > 0 && isContinuationByte(text[cut]))
        --cut;
    // Whether a character ends at a place depends on what stands before and on one code point after.
    constexpr std::size_t longestCodePoint = 4;
    CharacterBreaks breaks(text.substr(0, limit + longestCodePoint));
    return std::string(text.substr(0, breaks.lastNotAfter(cut)));
}

} // namespace korvane
