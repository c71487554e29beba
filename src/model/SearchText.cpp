#include "model/SearchText.h"

#include "model/ByteSearch.h"
#include "model/CanonicalText.h"
#include "model/Utf8.h"

#include <unicode/uchar.h>
#include <unicode/uloc.h>

#include <array>

namespace korvane {
namespace {

    Folding foldingOf(const std::string& localeId)
    {
        std::array<char, ULOC_LANG_CAPACITY> language {};
        auto error = U_ZERO_ERROR;
        uloc_getLanguage(localeId.c_str(), language.data(), ULOC_LANG_CAPACITY, &error);
        const std::string_view name(language.data());
        return U_SUCCESS(error) && (name == "tr" || name == "az") ? Folding::turkic : Folding::full;
    }

    bool isMarkAt(std::string_view key, std::size_t index)
    {
        // All below U+0300, whose first byte this is, have combining class 0.
        constexpr unsigned char firstByteOfMarks = 0xCC;
        if (index >= key.size() || static_cast<unsigned char>(key[index]) < firstByteOfMarks)
            return false;
        return u_getCombiningClass(static_cast<UChar32>(codePointAt(key, index).value)) != 0;
    }

} // namespace

std::string currentLocaleId()
{
    return uloc_getDefault();
}

std::string searchKey(std::string_view utf8, const std::string& localeId)
{
    return canonicalForm(utf8, foldingOf(localeId));
}

SearchNeedle::SearchNeedle(std::string_view typed, const std::string& localeId)
    : m_key(searchKey(typed, localeId))
    , m_beginsWithMark(isMarkAt(m_key, 0))
{
}

bool SearchNeedle::occursIn(std::string_view key) const
{
    if (m_key.empty())
        return true;
    if (m_beginsWithMark)
        return false;
    auto at = findBytes(key, m_key);
    while (at != std::string_view::npos && isMarkAt(key, at + m_key.size()))
        at = findBytes(key, m_key, at + 1);
    return at != std::string_view::npos;
}

bool SearchNeedle::extends(const SearchNeedle& earlier) const
{
    if (earlier.isEmpty())
        return true;
    const auto size = earlier.m_key.size();
    // A mark would go with the letter before it, so that the earlier one does not occur there. What
    // is ASCII is no mark.
    return m_key.size() > size && m_key.starts_with(earlier.m_key)
        && static_cast<unsigned char>(m_key[size]) < 0x80;
}

} // namespace korvane
