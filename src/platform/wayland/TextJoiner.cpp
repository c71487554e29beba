#include "platform/wayland/TextJoiner.h"

#include "model/Text.h"

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

    // How long the sequence is that this byte begins; 1 for one that begins none.
    std::size_t sequenceLength(char first)
    {
        const auto byte = static_cast<unsigned char>(first);
        if (byte >= 0xF0)
            return 4;
        if (byte >= 0xE0)
            return 3;
        return byte >= 0xC0 ? 2 : 1;
    }

    bool isContinuation(char byte)
    {
        return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
    }

} // namespace

std::size_t unfinishedBytes(std::string_view utf8)
{
    constexpr std::size_t longest = 4;
    for (std::size_t back = 1; back < longest && back <= utf8.size(); ++back) {
        const char byte = utf8[utf8.size() - back];
        if (!isContinuation(byte))
            return sequenceLength(byte) > back ? back : 0;
    }
    return 0;
}

TextJoiner::TextJoiner(MainLoop& loop, std::deque<std::string> pieces, Repair repair, Answer answer)
    : m_loop(loop)
    , m_pieces(std::move(pieces))
    , m_repair(repair)
    , m_answer(std::move(answer))
{
    std::size_t size = 0;
    for (const auto& piece : m_pieces)
        size += piece.size();
    m_text.reserve(size); // without being touched: that comes bit by bit
    awaitTurn();
}

void TextJoiner::awaitTurn()
{
    m_next = m_loop.after(std::chrono::milliseconds { 0 }, [this] { joinNext(); });
}

void TextJoiner::joinNext()
{
    if (!m_pieces.empty()) {
        append(std::move(m_pieces.front()));
        m_pieces.pop_front();
    }
    if (!m_pieces.empty()) {
        awaitTurn();
        return;
    }
    if (!m_carried.empty())
        m_text += repairedUtf8(std::exchange(m_carried, {}));
    const auto answer = std::exchange(m_answer, nullptr);
    answer(std::move(m_text)); // may destroy us: nothing comes after it
}

void TextJoiner::append(std::string piece)
{
    if (m_repair == Repair::utf8) {
        if (!m_carried.empty())
            piece.insert(0, std::exchange(m_carried, {}));
        const auto unfinished = unfinishedBytes(piece);
        m_carried = piece.substr(piece.size() - unfinished);
        piece.resize(piece.size() - unfinished);
        piece = repairedUtf8(std::move(piece));
    }
    m_text += piece;
}

} // namespace korvane
