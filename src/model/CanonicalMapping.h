#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// How letter case is treated when texts are compared (Unicode Standard, section 3.13).
enum class Folding {
    none,   ///< Case matters.
    full,   ///< Full case folding: "ß" is "ss".
    turkic, ///< Full case folding in which "I" is "ı" and "İ" is "i".
};

/// What each code point becomes in the canonical decomposition (NFD, UAX #15) of a text or, with
/// folding, in NFD(fold(NFD(text))), the form by which canonical caseless matching is defined (D145).
class CanonicalMapping {
public:
    /// Nearly all code points stand for themselves whatever stands beside them, and have combining
    /// class 0. The table answers that question by one small number.
    using Entry = std::uint16_t;
    static constexpr Entry unchanged = 0;
    static constexpr Entry hangulSyllable = 1; ///< Decomposes by arithmetic; see `appendHangul`.

    /// What one code point becomes.
    struct Mapped {
        std::string_view text;
        /// Combining classes of the first and the last code point of its decomposition. A code point
        /// may be replaced by `text` when its first class is 0, or not below the last class before.
        std::uint8_t firstClass = 0;
        std::uint8_t lastClass = 0;
    };

    /// The table of a folding, made when it is first asked for.
    static const CanonicalMapping& of(Folding folding);

    explicit CanonicalMapping(Folding folding);

    Entry entry(char32_t codePoint) const
    {
        return m_pages[m_pageOf[codePoint >> pageBits]][codePoint & (pageSize - 1)];
    }
    /// For an entry that is neither `unchanged` nor `hangulSyllable`.
    Mapped mapped(Entry entry) const
    {
        const auto& stored = m_stored[entry];
        return { std::string_view(m_texts).substr(stored.begin, stored.size), stored.firstClass,
            stored.lastClass };
    }
    /// The combining class with which the decomposition of a code point begins: one that begins
    /// with class 0 begins a stretch of text that can be treated alone.
    std::uint8_t firstClass(char32_t codePoint) const
    {
        return m_stored[entry(codePoint)].firstClass;
    }

    /// Decomposes a syllable of the block "Hangul Syllables" (Unicode Standard, section 3.12).
    static void appendHangul(std::string& text, char32_t syllable);
    /// What a stretch of text becomes, by the definition: decomposed, ordered, folded, and
    /// decomposed and ordered again. Its time is n log n for n marks on one letter.
    std::string mapStretch(const std::u32string& stretch) const;

private:
    static constexpr unsigned pageBits = 8;
    static constexpr std::size_t pageSize = std::size_t { 1 } << pageBits;
    using Page = std::array<Entry, pageSize>;

    struct Stored {
        std::uint32_t begin = 0;
        std::uint8_t size = 0;
        std::uint8_t firstClass = 0;
        std::uint8_t lastClass = 0;
    };

    void store(char32_t codePoint);
    Entry& slot(char32_t codePoint);

    Folding m_folding;
    std::array<std::uint16_t, 0x110000 / pageSize> m_pageOf {};
    std::vector<Page> m_pages;
    std::vector<Stored> m_stored;
    std::string m_texts;
};

} // namespace korvane
