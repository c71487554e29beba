#include "platform/InstanceClaim.h"

#include "platform/UnixSocket.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <system_error>
#include <utility>

namespace korvane {

namespace {
    namespace fs = std::filesystem;
    using Clock = std::chrono::steady_clock;
    using Outcome = InstanceStart::Outcome;

    constexpr int backlog = 16;
    /// Between two tries while the other one is just starting or ending, which it cannot tell us of.
    constexpr std::chrono::milliseconds pause { 10 };

    std::string lastError()
    {
        return std::generic_category().message(errno);
    }

    /// Waits until the descriptor can be used; false when the time is over.
    bool waitFor(int descriptor, short events, Clock::time_point deadline)
    {
        for (;;) {
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
            pollfd entry { descriptor, events, 0 };
            const auto ready
                = left.count() > 0 ? ::poll(&entry, 1, static_cast<int>(left.count())) : 0;
            if (ready >= 0 || errno != EINTR)
                return ready > 0;
        }
    }

    enum class Answer {
        taken,
        refused,
        none,   ///< somebody listens, but keeps silent or has just ended
        nobody, ///< nobody listens
    };

    /// Tells the wish to whoever listens.
    Answer pass(const fs::path& socket, Wish wish, Clock::time_point deadline)
    {
        const auto connection = connectTo(socket);
        if (!connection.isOpen())
            return errno == EAGAIN ? Answer::none : Answer::nobody; // EAGAIN: too many wait already
        if (!isOwnUser(connection.number()))
            return Answer::none;
        const auto line = std::string(wordFor(wish)) + "\n";
        if (::send(connection.number(), line.data(), line.size(), MSG_NOSIGNAL)
            != static_cast<ssize_t>(line.size()))
            return Answer::none;
        std::string answer;
        while (!answer.ends_with('\n') && waitFor(connection.number(), POLLIN, deadline)) {
            std::array<char, 16> buffer {};
            const auto size = ::recv(connection.number(), buffer.data(), buffer.size(), 0);
            if (size <= 0)
                return Answer::none;
            answer.append(buffer.data(), static_cast<std::size_t>(size));
        }
        return answer == "ok\n" ? Answer::taken : answer.empty() ? Answer::none : Answer::refused;
    }

    /// Opens the lock file, without following a link that somebody may have put there.
    Descriptor openLock(const fs::path& path)
    {
        return Descriptor(
            ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR));
    }

    InstanceStart failed(std::string reason)
    {
        return { Outcome::failed, std::nullopt, "korvane: " + std::move(reason) };
    }

    /// The lock is ours: puts our socket in the place of what may lie there.
    InstanceStart listen(Descriptor lock, const fs::path& socket)
    {
        auto listener = listenAt(socket, backlog);
        if (!listener.isOpen())
            return failed("cannot listen at " + socket.string() + ": " + lastError());
        return { Outcome::first, InstanceClaim(std::move(lock), std::move(listener), socket), {} };
    }
} // namespace

InstanceClaim::InstanceClaim(Descriptor lock, Descriptor listener, fs::path socket)
    : m_lock(std::move(lock))
    , m_listener(std::move(listener))
    , m_socket(std::move(socket))
{
}

InstanceClaim::~InstanceClaim()
{
    if (m_listener.isOpen()) // else moved from
        ::unlink(m_socket.c_str());
}

InstanceStart startInstance(const fs::path& folder, Wish wish, std::chrono::milliseconds patience)
{
    const auto deadline = Clock::now() + patience;
    const auto socket = folder / "korvane.socket";
    // The lock file stays for good: were it removed, two starters could each lock one of their own.
    auto lock = openLock(folder / "korvane.lock");
    if (!lock.isOpen())
        return failed("cannot write to " + folder.string() + ": " + lastError());
    for (;;) {
        const auto isLocked = ::flock(lock.number(), LOCK_EX | LOCK_NB) == 0;
        // Ask even with the lock in hand: a clean-up of temporary files may have removed the lock file
        // of one that runs on.
        const auto answer = pass(socket, wish, deadline);
        if (answer == Answer::taken)
            return { Outcome::passed, std::nullopt, {} };
        if (answer == Answer::refused)
            return failed("the running Korvane does not know this wish");
        if (answer == Answer::nobody && isLocked)
            return listen(std::move(lock), socket);
        if (Clock::now() >= deadline)
            return failed("the running Korvane does not answer");
        ::poll(nullptr, 0, static_cast<int>(pause.count()));
    }
}

std::optional<Descriptor> claimFolder(const fs::path& folder, std::chrono::milliseconds patience)
{
    const auto deadline = Clock::now() + patience;
    Descriptor claim(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!claim.isOpen())
        return claim;
    while (::flock(claim.number(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK)
            return Descriptor();
        if (Clock::now() >= deadline)
            return std::nullopt;
        ::poll(nullptr, 0, static_cast<int>(pause.count()));
    }
    return claim;
}

} // namespace korvane
