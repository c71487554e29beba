#include "model/CanonicalMapping.h"

#include "model/Utf8.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/uniset.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cassert>
#include <span>
#include <utility>

namespace korvane {
namespace {

    constexpr char32_t firstSyllable = 0xAC00;
    constexpr char32_t lastSyllable = 0xD7A3;
    constexpr char32_t dotAbove = 0x0307;
    constexpr std::uint8_t classOfDotAbove = 230;
    // Above every real class, so that any mark that follows is looked at together with the letter.
    constexpr std::uint8_t mindsEveryMark = 255;

    struct Classed {
        char32_t value;
        std::uint8_t combiningClass;
    };
    using Sequence = std::vector<Classed>;

    const icu::Normalizer2& decomposer()
    {
        auto error = U_ZERO_ERROR;
        const auto* instance = icu::Normalizer2::getNFDInstance(error);
        assert(instance); // its data is compiled into the library
        return *instance;
    }

    void append(Sequence& sequence, char32_t value)
    {
        sequence.push_back({ value, u_getCombiningClass(static_cast<UChar32>(value)) });
    }

    void appendDecomposed(Sequence& sequence, char32_t value)
    {
        icu::UnicodeString text;
        if (!decomposer().getDecomposition(static_cast<UChar32>(value), text)) {
            append(sequence, value);
            return;
        }
        for (int32_t at = 0; at < text.length(); at = text.moveIndex32(at, 1))
            append(sequence, static_cast<char32_t>(text.char32At(at)));
    }

    // The Canonical Ordering Algorithm (D109). A stable sort, because the marks that one letter
    // carries can be a million.
    void order(Sequence& sequence)
    {
        const auto isStarter = [](const Classed& each) { return each.combiningClass == 0; };
        auto begin = sequence.begin();
        while (begin != sequence.end()) {
            begin = std::find_if_not(begin, sequence.end(), isStarter);
            const auto end = std::find_if(begin, sequence.end(), isStarter);
            std::stable_sort(begin, end, [](const Classed& a, const Classed& b) {
                return a.combiningClass < b.combiningClass;
            });
            begin = end;
        }
    }

    // In Turkish and Azeri "İ" is the capital of "i", but its decomposition is "I" with a dot above.
    // The pair is made "i" before folding, else one letter would fold in two ways.
    void foldDottedI(Sequence& sequence)
    {
        for (std::size_t at = 0; at < sequence.size(); ++at) {
            if (sequence[at].value != 'I')
                continue;
            auto mark = at + 1;
            while (mark < sequence.size() && sequence[mark].combiningClass != 0
                && sequence[mark].combiningClass != classOfDotAbove)
                ++mark;
            if (mark == sequence.size() || sequence[mark].value != dotAbove)
                continue;
            sequence[at].value = 'i';
            sequence.erase(sequence.begin() + static_cast<std::ptrdiff_t>(mark));
        }
    }

    Sequence folded(const Sequence& sequence, Folding folding)
    {
        const uint32_t options
            = folding == Folding::turkic ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT;
        Sequence result;
        result.reserve(sequence.size());
        for (const auto& each : sequence) {
            icu::UnicodeString text(static_cast<UChar32>(each.value));
            text.foldCase(options);
            for (int32_t at = 0; at < text.length(); at = text.moveIndex32(at, 1))
                appendDecomposed(result, static_cast<char32_t>(text.char32At(at)));
        }
        return result;
    }

    // The code points that do not simply stand for themselves.
    icu::UnicodeSet changedCodePoints(Folding folding)
    {
        auto error = U_ZERO_ERROR;
        icu::UnicodeSet set(folding == Folding::none
                ? icu::UnicodeString(u"[[:NFD_QC=N:][:^ccc=0:]]")
                : icu::UnicodeString(u"[[:NFD_QC=N:][:^ccc=0:][:CWCF=Y:]]"),
            error);
        assert(U_SUCCESS(error)); // the pattern is a constant
        return set;
    }

} // namespace

const CanonicalMapping& CanonicalMapping::of(Folding folding)
{
    if (folding == Folding::none) {
        static const CanonicalMapping decomposition(Folding::none);
        return decomposition;
    }
    if (folding == Folding::full) {
        static const CanonicalMapping caseless(Folding::full);
        return caseless;
    }
    static const CanonicalMapping turkic(Folding::turkic);
    return turkic;
}

CanonicalMapping::CanonicalMapping(Folding folding)
    : m_folding(folding)
    , m_pages(1)
    , m_stored(hangulSyllable + 1)
{
    const auto changed = changedCodePoints(folding);
    for (int32_t range = 0; range < changed.getRangeCount(); ++range) {
        const auto last = static_cast<char32_t>(changed.getRangeEnd(range));
        for (auto each = static_cast<char32_t>(changed.getRangeStart(range)); each <= last;
             ++each) {
            if (each >= firstSyllable && each <= lastSyllable)
                slot(each) = hangulSyllable;
            else
                store(each);
        }
    }
}

CanonicalMapping::Entry& CanonicalMapping::slot(char32_t codePoint)
{
    auto& page = m_pageOf[codePoint >> pageBits];
    if (page == 0) {
        page = static_cast<std::uint16_t>(m_pages.size());
        m_pages.emplace_back();
    }
    return m_pages[page][codePoint & (pageSize - 1)];
}

void CanonicalMapping::store(char32_t codePoint)
{
    Sequence decomposition;
    appendDecomposed(decomposition, codePoint);
    const auto text = mapStretch(std::u32string(1, codePoint));
    Stored stored { static_cast<std::uint32_t>(m_texts.size()),
        static_cast<std::uint8_t>(text.size()), decomposition.front().combiningClass,
        decomposition.back().combiningClass };
    if (m_folding == Folding::turkic && decomposition.front().value == 'I')
        stored.lastClass = mindsEveryMark;
    m_texts += text;
    slot(codePoint) = static_cast<Entry>(m_stored.size());
    m_stored.push_back(stored);
}

void CanonicalMapping::appendHangul(std::string& text, char32_t syllable)
{
    constexpr char32_t vowels = 21;
    constexpr char32_t finals = 28;
    const auto index = syllable - firstSyllable;
    const std::array<char32_t, 3> letters { 0x1100 + index / (vowels * finals),
        0x1161 + index / finals % vowels, 0x11A7 + index % finals };
    std::array<char, 9> bytes {};
    std::size_t size = 0;
    const auto add = [&bytes, &size](char32_t byte) { bytes[size++] = static_cast<char>(byte); };
    for (const auto letter : std::span(letters).first(index % finals == 0 ? 2 : 3)) {
        add(0xE0U | letter >> 12U);
        add(0x80U | (letter >> 6U & 0x3FU));
        add(0x80U | (letter & 0x3FU));
    }
    text.append(bytes.data(), size);
}

std::string CanonicalMapping::mapStretch(const std::u32string& stretch) const
{
    Sequence sequence;
    sequence.reserve(stretch.size());
    for (const auto each : stretch)
        appendDecomposed(sequence, each);
    order(sequence);
    if (m_folding == Folding::turkic)
        foldDottedI(sequence);
    if (m_folding != Folding::none) {
        sequence = folded(sequence, m_folding);
        order(sequence);
    }
    std::string text;
    for (const auto& each : sequence)
        appendUtf8(text, each.value);
    return text;
}

} // namespace korvane
