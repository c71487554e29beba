#include "model/ByteSearch.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace korvane {
namespace {

    // A vector of the compiler's own: one register where the machine has such registers, plain code
    // where it has not.
    constexpr std::size_t blockSize = 16;
    using Block = unsigned char __attribute__((vector_size(blockSize)));
    using Halves = std::array<std::uint64_t, 2>;
    constexpr std::size_t stride = 4 * blockSize;

    Block load(const char* bytes)
    {
        Block block {};
        std::memcpy(&block, bytes, sizeof block);
        return block;
    }

    Block filled(char byte)
    {
        return Block {} + static_cast<unsigned char>(byte);
    }

    Halves halvesOf(const Block& block)
    {
        return std::bit_cast<Halves>(block);
    }

    bool isAnySet(const Block& block)
    {
        const auto halves = halvesOf(block);
        return (halves[0] | halves[1]) != 0;
    }

    // The place of the first byte in memory that is not zero, in a word that is not zero.
    std::size_t firstByteSet(std::uint64_t word)
    {
        const auto bit = std::endian::native == std::endian::little ? std::countr_zero(word)
                                                                    : std::countl_zero(word);
        return static_cast<std::size_t>(bit) / 8;
    }

    std::uint64_t withoutByte(std::uint64_t word, std::size_t place)
    {
        const auto byte = std::endian::native == std::endian::little ? place : 7 - place;
        return word & ~(std::uint64_t { 0xFF } << (8 * byte));
    }

    // Looks for the places where the first, the middle and the last byte of the needle fit, many at a
    // time, and compares the rest only there.
    class Finder {
    public:
        Finder(std::string_view text, std::string_view needle)
            : m_text(text)
            , m_needle(needle)
            , m_middleOffset(needle.size() / 2)
            , m_lastOffset(needle.size() - 1)
            , m_first(filled(needle.front()))
            , m_middle(filled(needle[m_middleOffset]))
            , m_last(filled(needle.back()))
        {
        }

        std::size_t find(std::size_t from)
        {
            const auto end = m_text.size() - m_lastOffset; // of the places where it could begin
            auto at = from;
            for (; at + stride <= end; at += stride) {
                if (!isAnySet(fits(at) | fits(at + blockSize) | fits(at + 2 * blockSize)
                        | fits(at + 3 * blockSize)))
                    continue;
                for (auto block = at; block < at + stride; block += blockSize) {
                    if (const auto found = confirm(block); found != std::string_view::npos)
                        return found;
                }
                // Text that resembles the needle everywhere would cost a comparison at each place.
                if (m_misses > 64 + (at - from) / 4)
                    return findLinearly(at + stride);
            }
            for (; at + blockSize <= end; at += blockSize) {
                if (const auto found = confirm(at); found != std::string_view::npos)
                    return found;
            }
            // What is left is less than a block, but a block that ends with it can be looked at again.
            if (at < end && end - from >= blockSize)
                return confirm(end - blockSize);
            for (; at < end; ++at) {
                if (isAt(at))
                    return at;
            }
            return std::string_view::npos;
        }

    private:
        Block fits(std::size_t at) const
        {
            const auto* bytes = m_text.data() + at;
            return static_cast<Block>(load(bytes) == m_first)
                & static_cast<Block>(load(bytes + m_middleOffset) == m_middle)
                & static_cast<Block>(load(bytes + m_lastOffset) == m_last);
        }

        bool isAt(std::size_t at) const
        {
            return std::memcmp(m_text.data() + at, m_needle.data(), m_needle.size()) == 0;
        }

        std::size_t confirm(std::size_t block)
        {
            const auto halves = halvesOf(fits(block));
            for (const std::size_t half : { 0U, 1U }) {
                for (auto word = halves[half]; word != 0;) {
                    const auto place = firstByteSet(word);
                    const auto at = block + half * 8 + place;
                    if (isAt(at))
                        return at;
                    ++m_misses;
                    word = withoutByte(word, place);
                }
            }
            return std::string_view::npos;
        }

        std::size_t findLinearly(std::size_t from) const
        {
            const auto* begin = m_text.data() + from;
            const auto* found = static_cast<const char*>(
                memmem(begin, m_text.size() - from, m_needle.data(), m_needle.size()));
            return found ? from + static_cast<std::size_t>(found - begin) : std::string_view::npos;
        }

        std::string_view m_text;
        std::string_view m_needle;
        std::size_t m_middleOffset;
        std::size_t m_lastOffset;
        Block m_first;
        Block m_middle;
        Block m_last;
        std::size_t m_misses = 0;
    };

    bool isAsciiBlank(char byte)
    {
        return byte == ' ' || (byte >= '\t' && byte <= '\r');
    }

    bool isBlankBlock(const char* bytes)
    {
        const auto block = load(bytes);
        const auto isLineOrTab
            = static_cast<Block>(block >= '\t') & static_cast<Block>(block <= '\r');
        return !isAnySet(~(isLineOrTab | static_cast<Block>(block == ' ')));
    }

} // namespace

std::size_t findBytes(std::string_view text, std::string_view needle, std::size_t from)
{
    if (from > text.size() || needle.size() > text.size() - from)
        return std::string_view::npos;
    if (needle.empty())
        return from;
    return Finder(text, needle).find(from);
}

std::size_t endOfAscii(std::string_view text, std::size_t from)
{
    auto at = from;
    for (; at + blockSize <= text.size(); at += blockSize) {
        const auto halves = halvesOf(load(text.data() + at) & filled('\x80'));
        if (halves[0] != 0)
            return at + firstByteSet(halves[0]);
        if (halves[1] != 0)
            return at + 8 + firstByteSet(halves[1]);
    }
    while (at < text.size() && static_cast<unsigned char>(text[at]) < 0x80)
        ++at;
    return at;
}

std::size_t endOfAsciiBlanks(std::string_view text)
{
    std::size_t at = 0;
    while (at + blockSize <= text.size() && isBlankBlock(text.data() + at))
        at += blockSize;
    while (at < text.size() && isAsciiBlank(text[at]))
        ++at;
    return at;
}

std::size_t beginOfAsciiBlanks(std::string_view text)
{
    auto at = text.size();
    while (at >= blockSize && isBlankBlock(text.data() + at - blockSize))
        at -= blockSize;
    while (at > 0 && isAsciiBlank(text[at - 1]))
        --at;
    return at;
}

void lowerAscii(char* bytes, std::size_t count)
{
    constexpr char difference = 'a' - 'A';
    std::size_t at = 0;
    for (; at + blockSize <= count; at += blockSize) {
        const auto block = load(bytes + at);
        const auto isCapital = static_cast<Block>(block >= 'A') & static_cast<Block>(block <= 'Z');
        const Block lowered = block + (isCapital & filled(difference));
        std::memcpy(bytes + at, &lowered, sizeof lowered);
    }
    for (; at < count; ++at) {
        if (bytes[at] >= 'A' && bytes[at] <= 'Z')
            bytes[at] = static_cast<char>(bytes[at] + difference);
    }
}

} // namespace korvane
