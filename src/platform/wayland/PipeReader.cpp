#include "platform/wayland/PipeReader.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace korvane {

namespace {

    using namespace std::chrono_literals;

    constexpr auto patience = 2s;
    constexpr std::size_t pieceBytes = 1024UL * 1024;
    // So much is read in one turn of the loop.
    constexpr std::size_t bytesATurn = 256UL * 1024;

} // namespace

PipeReader::PipeReader(MainLoop& loop, Descriptor pipe, std::size_t maxBytes, Answer answer)
    : m_loop(loop)
    , m_pipe(std::move(pipe))
    , m_bytesLeft(maxBytes)
    , m_answer(std::move(answer))
    , m_buffer(bytesATurn)
{
    // Of this end alone: many programs do not expect that a write to the other could not be done at once.
    ::fcntl(m_pipe.number(), F_SETFL, O_NONBLOCK);
    // A larger pipe only means fewer turns; where it may not be had, the usual one will do.
    ::fcntl(m_pipe.number(), F_SETPIPE_SZ, static_cast<int>(bytesATurn));
    m_watch = m_loop.watch(m_pipe.number(), [this] { readSome(); });
    awaitBytes();
}

void PipeReader::awaitBytes()
{
    m_silence = m_loop.after(patience, [this] { finish(PipeContents::Ending::silent); });
}

void PipeReader::readSome()
{
    const auto count = ::read(m_pipe.number(), m_buffer.data(), m_buffer.size());
    if (count > 0 && static_cast<std::size_t>(count) > m_bytesLeft) {
        finish(PipeContents::Ending::tooLarge);
    } else if (count > 0) {
        keep(static_cast<std::size_t>(count));
        awaitBytes();
    } else if (count == 0 || (errno != EAGAIN && errno != EINTR)) {
        finish(PipeContents::Ending::received);
    }
}

void PipeReader::keep(std::size_t byteCount)
{
    m_bytesLeft -= byteCount;
    auto& pieces = m_contents.pieces;
    if (pieces.empty() || pieces.back().size() + byteCount > pieceBytes) {
        // A small copy takes no more than it needs.
        const bool isLarge = !pieces.empty();
        pieces.emplace_back();
        if (isLarge)
            pieces.back().reserve(pieceBytes);
    }
    pieces.back().append(m_buffer.data(), byteCount);
}

void PipeReader::finish(PipeContents::Ending ending)
{
    m_watch.stop();
    m_silence.stop();
    m_contents.ending = ending;
    const auto answer = std::exchange(m_answer, nullptr);
    answer(std::move(m_contents)); // may destroy us: nothing comes after it
}

} // namespace korvane
