#include "platform/UnixSocket.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <optional>
#include <string>

namespace korvane {

namespace {
    std::optional<sockaddr_un> addressOf(const std::filesystem::path& path)
    {
        sockaddr_un address {};
        address.sun_family = AF_UNIX;
        const auto& text = path.native();
        if (text.size() >= sizeof address.sun_path) {
            errno = ENAMETOOLONG;
            return std::nullopt;
        }
        std::memcpy(address.sun_path, text.data(), text.size());
        return address;
    }

    Descriptor newSocket()
    {
        return Descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    }

    const sockaddr* generic(const sockaddr_un& address)
    {
        return reinterpret_cast<const sockaddr*>(&address);
    }
} // namespace

Descriptor listenAt(const std::filesystem::path& path, int backlog)
{
    const auto address = addressOf(path);
    auto listener = newSocket();
    if (!address || !listener.isOpen())
        return {};
    ::unlink(path.c_str());
    // Narrowed before it listens: until then nobody can connect.
    if (::bind(listener.number(), generic(*address), sizeof *address) != 0
        || ::chmod(path.c_str(), S_IRUSR | S_IWUSR) != 0
        || ::listen(listener.number(), backlog) != 0)
        return {};
    return listener;
}

Descriptor connectTo(const std::filesystem::path& path)
{
    const auto address = addressOf(path);
    auto connection = newSocket();
    if (!address || !connection.isOpen()
        || ::connect(connection.number(), generic(*address), sizeof *address) != 0)
        return {};
    return connection;
}

bool isOwnUser(int connection)
{
    ucred peer {};
    socklen_t size = sizeof peer;
    return ::getsockopt(connection, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0
        && peer.uid == ::getuid();
}

} // namespace korvane
