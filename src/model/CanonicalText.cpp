#include "model/CanonicalText.h"

#include "model/ByteSearch.h"
#include "model/Text.h"
#include "model/Utf8.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace korvane {
namespace {

    // Walks through well-formed text and copies what does not change in whole runs. Code points are
    // replaced one by one; only where marks would have to change places is the stretch since the
    // last starter (a code point of class 0) taken back and treated as a whole.
    class CanonicalWriter {
    public:
        CanonicalWriter(std::string_view text, Folding folding)
            : m_in(text)
            , m_folding(folding)
            , m_mapping(CanonicalMapping::of(folding))
        {
            m_out.reserve(text.size());
        }

        std::string write()
        {
            while (m_at < m_in.size()) {
                const auto end = endOfPlainRun();
                if (end - m_at >= longRun)
                    copyAscii(end);
                else
                    takeCodePoints(end);
            }
            copyPending();
            // Most texts fit what was reserved; the others would keep up to twice what they need.
            if (m_out.capacity() > m_out.size() + m_out.size() / 8)
                m_out.shrink_to_fit();
            return std::move(m_out);
        }

    private:
        static constexpr std::size_t longRun
            = 16; // so long that it is worth a treatment of its own

        // In Turkish and Azeri "I" minds what follows it, so it goes the way of the others.
        std::size_t endOfPlainRun() const
        {
            const auto end = endOfAscii(m_in, m_at);
            return m_folding == Folding::turkic ? std::min(end, m_in.substr(0, end).find('I', m_at))
                                                : end;
        }

        void copyAscii(std::size_t end)
        {
            copyPending();
            m_out.append(m_in, m_at, end - m_at);
            if (m_folding != Folding::none)
                lowerAscii(m_out.data() + m_out.size() - (end - m_at), end - m_at);
            m_at = end;
            m_pending = end;
            noteStarter(end - 1, m_out.size() - 1, 0);
        }

        // Takes what is left of a short run, one code point at least, and all that are not ASCII.
        void takeCodePoints(std::size_t endOfRun)
        {
            do
                takeCodePoint();
            while (m_at < endOfRun
                || (m_at < m_in.size() && static_cast<unsigned char>(m_in[m_at]) >= 0x80));
        }

        void takeCodePoint()
        {
            const auto codePoint = codePointOfWellFormed(m_in, m_at);
            const auto entry = m_mapping.entry(codePoint.value);
            if (entry == CanonicalMapping::unchanged) {
                m_at += codePoint.size;
                return;
            }
            copyPending();
            if (entry == CanonicalMapping::hangulSyllable) {
                noteStarter(m_at, m_out.size(), 0);
                CanonicalMapping::appendHangul(m_out, codePoint.value);
            } else if (!replace(m_mapping.mapped(entry))) {
                treatStretch();
                return;
            }
            m_at += codePoint.size;
            m_pending = m_at;
        }

        // False when a mark would have to move.
        bool replace(const CanonicalMapping::Mapped& mapped)
        {
            if (mapped.firstClass == 0)
                noteStarter(m_at, m_out.size(), mapped.lastClass);
            else if (mapped.firstClass < m_lastClass)
                return false;
            else
                m_lastClass = mapped.lastClass;
            m_out.append(mapped.text);
            return true;
        }

        void treatStretch()
        {
            m_out.resize(m_starterOut);
            m_at = m_starterIn;
            std::u32string stretch;
            do {
                const auto codePoint = codePointOfWellFormed(m_in, m_at);
                stretch.push_back(codePoint.value);
                m_at += codePoint.size;
            } while (m_at < m_in.size()
                && m_mapping.firstClass(codePointOfWellFormed(m_in, m_at).value) != 0);
            m_out.append(m_mapping.mapStretch(stretch));
            m_pending = m_at;
        }

        // Copies the unchanged code points that were passed over; the last one is a starter.
        void copyPending()
        {
            if (m_pending == m_at)
                return;
            m_out.append(m_in, m_pending, m_at - m_pending);
            const auto size = codePointBefore(m_in, m_at).size;
            noteStarter(m_at - size, m_out.size() - size, 0);
            m_pending = m_at;
        }

        void noteStarter(std::size_t in, std::size_t out, std::uint8_t lastClass)
        {
            m_starterIn = in;
            m_starterOut = out;
            m_lastClass = lastClass;
        }

        std::string_view m_in;
        Folding m_folding;
        const CanonicalMapping& m_mapping;
        std::string m_out;
        std::size_t m_at = 0;
        std::size_t m_pending = 0; // from here to m_at: read, unchanged, not yet copied
        std::size_t m_starterIn = 0;
        std::size_t m_starterOut = 0;
        std::uint8_t m_lastClass = 0;
    };

} // namespace

std::string canonicalForm(std::string_view utf8, Folding folding)
{
    if (isValidUtf8(utf8))
        return CanonicalWriter(utf8, folding).write();
    const auto repaired = repairedUtf8(std::string(utf8));
    return CanonicalWriter(repaired, folding).write();
}

} // namespace korvane
