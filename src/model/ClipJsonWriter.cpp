#include "model/ClipJson.h"

#include "model/ClipKeys.h"
#include "model/IsoDate.h"
#include "model/Text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>

namespace korvane {

namespace {

    constexpr std::size_t blockSize = 256UL * 1024;
    constexpr std::size_t longestEscape = 6; // "\u001F"
    // A piece of text that fits even when every byte must be escaped, so that the inner loop need
    // not look for the end of the block.
    constexpr std::size_t pieceSize = 16UL * 1024;

    /// Of eight bytes at once, those that are a control character, a quote or a backslash: the lowest
    /// bit that is set stands in the first of them, as the bytes lie in memory.
    std::uint64_t bytesToEscape(std::uint64_t bytes)
    {
        constexpr std::uint64_t ones = 0x0101010101010101;
        constexpr std::uint64_t highs = ones << 7;
        const auto quote = bytes ^ (ones * '"');
        const auto backslash = bytes ^ (ones * '\\');
        const auto controls = (bytes - ones * 0x20) & ~bytes;
        return (controls | ((quote - ones) & ~quote) | ((backslash - ones) & ~backslash)) & highs;
    }

    std::uint64_t eightBytes(const char* text)
    {
        static_assert(std::endian::native == std::endian::little);
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, text, sizeof bytes);
        return bytes;
    }

    /// How a byte is written.
    struct Written {
        std::array<char, 7> text {};
        std::uint8_t size = 0;
    };

    constexpr Written written(unsigned char value)
    {
        constexpr std::string_view hexDigits = "0123456789ABCDEF";
        constexpr std::string_view named = "\"\\\b\f\n\r\t";
        constexpr std::string_view names = "\"\\bfnrt";
        const auto c = static_cast<char>(value);
        if (const auto place = named.find(c); place != std::string_view::npos)
            return { { '\\', names[place] }, 2 };
        if (value < 0x20)
            return { { '\\', 'u', '0', '0', hexDigits[value >> 4], hexDigits[value & 0x0F] }, 6 };
        return { { c }, 1 };
    }

    constexpr auto writtenBytes = [] {
        std::array<Written, 256> all {};
        for (std::size_t i = 0; i < all.size(); ++i)
            all[i] = written(static_cast<unsigned char>(i));
        return all;
    }();

    char* writeByte(char* out, char c)
    {
        const auto& bytes = writtenBytes[static_cast<unsigned char>(c)];
        std::memcpy(out, bytes.text.data(), bytes.text.size());
        return out + bytes.size;
    }

    /// Copies while it looks: most bytes of a text need nothing else. What is copied too much is
    /// written over by what follows; a piece leaves room for that.
    char* writeEscaped(char* out, std::string_view text)
    {
        while (text.size() >= sizeof(std::uint64_t)) {
            std::memcpy(out, text.data(), sizeof(std::uint64_t));
            const auto found = bytesToEscape(eightBytes(text.data()));
            const auto plain = static_cast<std::size_t>(std::countr_zero(found)) / 8;
            out += plain;
            text.remove_prefix(plain);
            if (found != 0) {
                out = writeByte(out, text.front());
                text.remove_prefix(1);
            }
        }
        for (const auto c : text)
            out = writeByte(out, c);
        return out;
    }

    class Writer {
    public:
        explicit Writer(const Blocks& block)
            : m_block(block)
            , m_buffer(std::make_unique_for_overwrite<char[]>(blockSize))
            , m_end(m_buffer.get())
        {
        }

        /// Text that stands as it is. @param text  shorter than a piece
        void raw(std::string_view text)
        {
            makeRoom(text.size());
            m_end = std::copy(text.begin(), text.end(), m_end);
        }

        void string(std::string_view text)
        {
            if (!isValidUtf8(text)) {
                string(repairedUtf8(std::string(text)));
                return;
            }
            raw("\"");
            while (!text.empty()) {
                const auto piece = text.substr(0, pieceSize);
                makeRoom(piece.size() * longestEscape + sizeof(std::uint64_t));
                m_end = writeEscaped(m_end, piece);
                text.remove_prefix(piece.size());
            }
            raw("\"");
        }

        void integer(std::int64_t value)
        {
            std::array<char, 24> digits {};
            const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
            raw({ digits.data(), static_cast<std::size_t>(end - digits.data()) });
        }

        void flush()
        {
            m_block({ m_buffer.get(), used() });
            m_end = m_buffer.get();
        }

    private:
        std::size_t used() const { return static_cast<std::size_t>(m_end - m_buffer.get()); }
        void makeRoom(std::size_t size)
        {
            if (blockSize - used() < size)
                flush();
        }

        const Blocks& m_block;
        std::unique_ptr<char[]> m_buffer;
        char* m_end;
    };

    using enum ClipKeys::Key;

    /// What stands around the values of a list.
    struct Punctuation {
        explicit Punctuation(JsonLayout layout)
            : isPretty(layout == JsonLayout::pretty)
        {
            for (std::size_t key = 0; key < keys.size(); ++key) {
                keys[key].assign(1, key == id ? '{' : ','); // a record begins with its identifier
                keys[key].append(isPretty ? "\n    \"" : "\"").append(ClipKeys::names[key]);
                keys[key].append(isPretty ? "\": " : "\":");
            }
        }

        bool isPretty;
        /// Each key with all that stands before its value.
        std::array<std::string, ClipKeys::names.size()> keys;
        std::string_view beforeRecord = isPretty ? "\n  " : "";
        std::string_view afterRecord = isPretty ? "\n  }" : "}";
        std::string_view beforeEnd = isPretty ? "\n" : "";
    };

    class RecordWriter {
    public:
        RecordWriter(Writer& out, const Punctuation& marks)
            : m_out(out)
            , m_marks(marks)
        {
        }

        void write(const ClipItem& clip)
        {
            plain(id, clip.id.text());
            string(text, clip.text);
            plain(type, rawValue(clip.type));
            if (clip.sourceApp)
                string(sourceApp, *clip.sourceApp);
            plain(createdAt, isoDate(clip.createdAt));
            boolean(isPinned, clip.isPinned);
            if (clip.customName)
                string(customName, *clip.customName);
            integer(useCount, clip.useCount);
            boolean(isOverflow, clip.isOverflow);
            if (clip.overflowPath)
                string(overflowPath, *clip.overflowPath);
            if (clip.overflowByteCount)
                integer(overflowByteCount, *clip.overflowByteCount);
            boolean(hasEmoji, clip.hasEmoji);
            m_out.raw(m_marks.afterRecord);
        }

    private:
        /// A text that needs no escapes.
        void plain(ClipKeys::Key key, std::string_view value)
        {
            m_out.raw(m_marks.keys[key]);
            m_out.raw("\"");
            m_out.raw(value);
            m_out.raw("\"");
        }
        void string(ClipKeys::Key key, std::string_view value)
        {
            m_out.raw(m_marks.keys[key]);
            m_out.string(value);
        }
        void integer(ClipKeys::Key key, std::int64_t value)
        {
            m_out.raw(m_marks.keys[key]);
            m_out.integer(value);
        }
        void boolean(ClipKeys::Key key, bool value)
        {
            m_out.raw(m_marks.keys[key]);
            m_out.raw(value ? "true" : "false");
        }

        Writer& m_out;
        const Punctuation& m_marks;
    };

} // namespace

void encodeClips(std::span<const ClipItem> clips, const Blocks& block, JsonLayout layout)
{
    const Punctuation marks(layout);
    Writer out(block);
    RecordWriter records(out, marks);
    out.raw("[");
    bool isFirst = true;
    for (const auto& clip : clips) {
        if (!isFirst)
            out.raw(",");
        isFirst = false;
        out.raw(marks.beforeRecord);
        records.write(clip);
    }
    if (!isFirst)
        out.raw(marks.beforeEnd);
    out.raw("]");
    out.flush();
}

} // namespace korvane
