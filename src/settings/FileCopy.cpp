#include "settings/FileCopy.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <utility>

namespace korvane {

namespace {

    using namespace std::chrono_literals;

    /// What even a slow stick takes in a moment.
    constexpr std::size_t pieceSize = 512UL * 1024;

    Descriptor openOwn(const std::filesystem::path& path)
    {
        Descriptor file(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
        struct stat status { };
        const bool isOurs = file.isOpen() && ::fstat(file.number(), &status) == 0
            && S_ISREG(status.st_mode) && status.st_uid == ::geteuid();
        return isOurs ? std::move(file) : Descriptor();
    }

} // namespace

FileCopy::FileCopy(MainLoop& loop, const std::filesystem::path& source,
    std::filesystem::path target, std::function<void()> ended)
    : m_loop(loop)
    , m_source(openOwn(source))
    , m_piece(pieceSize, '\0')
    , m_ended(std::move(ended))
{
    if (m_source.isOpen())
        m_target.emplace(std::move(target));
    goOn();
}

FileCopy::~FileCopy()
{
    if (m_target)
        m_target->giveUp();
}

void FileCopy::goOn()
{
    m_next = m_loop.after(0ms, [this] { copyPiece(); });
}

void FileCopy::copyPiece()
{
    if (!m_target || m_target->error())
        return end(); // deliberately without a word
    const auto count = ::read(m_source.number(), m_piece.data(), m_piece.size());
    if (count == 0) {
        m_target->complete();
        m_target.reset();
        return end();
    }
    if (count > 0)
        m_target->write(std::string_view(m_piece).substr(0, static_cast<std::size_t>(count)));
    else if (errno != EINTR)
        return end();
    goOn();
}

void FileCopy::end()
{
    const auto ended = std::move(m_ended);
    ended(); // the last thing we do: it may destroy us
}

} // namespace korvane
