#include "model/ClipJson.h"

#include "model/IsoDate.h"
#include "model/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <memory>

namespace korvane {

namespace {

    constexpr std::size_t blockSize = 256 * 1024;
    constexpr std::size_t longestEscape = 6; // "\u001F"
    // A piece of text that fits even when every byte must be escaped, so that the inner loop need
    // not look for the end of the block.
    constexpr std::size_t pieceSize = 16 * 1024;

    /// Eight bytes at once: whether one of them is a control character, a quote or a backslash.
    bool needsEscape(std::uint64_t bytes)
    {
        constexpr std::uint64_t ones = 0x0101010101010101;
        constexpr std::uint64_t highs = ones << 7;
        const auto quote = bytes ^ (ones * '"');
        const auto backslash = bytes ^ (ones * '\\');
        const auto controls = (bytes - ones * 0x20) & ~bytes;
        return ((controls | ((quote - ones) & ~quote) | ((backslash - ones) & ~backslash)) & highs)
            != 0;
    }

    char* writeByte(char* out, char c)
    {
        constexpr std::string_view hexDigits = "0123456789ABCDEF";
        constexpr std::string_view named = "\"\\\b\f\n\r\t";
        constexpr std::string_view names = "\"\\bfnrt";
        const auto value = static_cast<unsigned char>(c);
        if (value >= 0x20 && c != '"' && c != '\\') {
            *out++ = c;
            return out;
        }
        *out++ = '\\';
        if (const auto place = named.find(c); place != std::string_view::npos) {
            *out++ = names[place];
            return out;
        }
        out = std::copy_n("u00", 3, out);
        *out++ = hexDigits[value >> 4];
        *out++ = hexDigits[value & 0x0F];
        return out;
    }

    /// Copies while it looks: most bytes of a text need nothing else.
    char* writeEscaped(char* out, std::string_view text)
    {
        std::uint64_t eight = 0;
        while (text.size() >= sizeof eight) {
            std::memcpy(&eight, text.data(), sizeof eight);
            if (needsEscape(eight)) {
                for (const auto c : text.substr(0, sizeof eight))
                    out = writeByte(out, c);
            } else {
                std::memcpy(out, &eight, sizeof eight);
                out += sizeof eight;
            }
            text.remove_prefix(sizeof eight);
        }
        for (const auto c : text)
            out = writeByte(out, c);
        return out;
    }

    class Writer {
    public:
        explicit Writer(const std::function<void(std::string_view)>& block)
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
                makeRoom(piece.size() * longestEscape);
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

        void boolean(bool value) { raw(value ? "true" : "false"); }

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

        const std::function<void(std::string_view)>& m_block;
        std::unique_ptr<char[]> m_buffer;
        char* m_end;
    };

    void writeClip(Writer& out, const ClipItem& clip)
    {
        out.raw(R"({"id":")");
        out.raw(clip.id.text());
        out.raw(R"(","text":)");
        out.string(clip.text);
        out.raw(R"(,"type":")");
        out.raw(rawValue(clip.type));
        out.raw("\"");
        if (clip.sourceApp) {
            out.raw(R"(,"sourceApp":)");
            out.string(*clip.sourceApp);
        }
        out.raw(R"(,"createdAt":")");
        out.raw(isoDate(clip.createdAt));
        out.raw(R"(","isPinned":)");
        out.boolean(clip.isPinned);
        if (clip.customName) {
            out.raw(R"(,"customName":)");
            out.string(*clip.customName);
        }
        out.raw(R"(,"useCount":)");
        out.integer(clip.useCount);
        out.raw(R"(,"isOverflow":)");
        out.boolean(clip.isOverflow);
        if (clip.overflowPath) {
            out.raw(R"(,"overflowPath":)");
            out.string(*clip.overflowPath);
        }
        if (clip.overflowByteCount) {
            out.raw(R"(,"overflowByteCount":)");
            out.integer(*clip.overflowByteCount);
        }
        out.raw(R"(,"hasEmoji":)");
        out.boolean(clip.hasEmoji);
        out.raw("}");
    }

} // namespace

void encodeClips(
    std::span<const ClipItem> clips, const std::function<void(std::string_view)>& block)
{
    Writer out(block);
    out.raw("[");
    bool isFirst = true;
    for (const auto& clip : clips) {
        if (!isFirst)
            out.raw(",");
        isFirst = false;
        writeClip(out, clip);
    }
    out.raw("]");
    out.flush();
}

} // namespace korvane
