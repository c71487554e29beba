#include "platform/wayland/PipeWriter.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace korvane {

namespace {

    // So much is written in one turn of the loop, and no more fits into a pipe of this size.
    constexpr std::size_t bytesATurn = 256UL * 1024;

} // namespace

PipeWriter::PipeWriter(
    MainLoop& loop, Descriptor pipe, std::shared_ptr<const FileBytes> text, Done done)
    : m_pipe(std::move(pipe))
    , m_text(std::move(text))
    , m_done(std::move(done))
    , m_watch(loop, m_pipe.number(), [this] { writeSome(); })
{
    ::fcntl(m_pipe.number(), F_SETFL, O_NONBLOCK);
    if (m_text->view().size() > bytesATurn)
        ::fcntl(m_pipe.number(), F_SETPIPE_SZ, static_cast<int>(bytesATurn));
}

void PipeWriter::writeSome()
{
    const auto size = std::min(m_text->view().size() - m_written, bytesATurn);
    const auto count = ::write(m_pipe.number(), m_text->view().data() + m_written, size);
    if (count >= 0)
        m_written += static_cast<std::size_t>(count);
    else if (errno == EAGAIN || errno == EINTR)
        return;
    if (count < 0 || m_written == m_text->view().size()) {
        const auto done = std::exchange(m_done, nullptr);
        done(); // may destroy us: nothing comes after it
    }
}

} // namespace korvane
