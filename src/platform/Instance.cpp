#include "platform/Instance.h"

#include "platform/UnixSocket.h"

#include <sys/socket.h>

#include <array>
#include <string_view>
#include <utility>

namespace korvane {

namespace {
    /// More at once are nobody's wish; those that are too many are sent away.
    constexpr std::size_t mostVisitors = 32;
    /// The longest wish, with room to spare.
    constexpr std::size_t longestLine = 32;
    /// How long a visitor may keep silent.
    constexpr std::chrono::seconds patience { 2 };
} // namespace

struct Instance::Visitor {
    Descriptor connection;
    std::string line;
    Timer reading;
    Timer deadline;
};

Instance::Instance(InstanceClaim claim, MainLoop& loop)
    : m_claim(std::move(claim))
    , m_loop(loop)
    , m_door(loop.watch(m_claim.listener(), [this] { welcome(); }))
{
}

Instance::~Instance() = default;

void Instance::welcome()
{
    Descriptor connection(
        ::accept4(m_claim.listener(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (!connection.isOpen() || !isOwnUser(connection.number())
        || m_visitors.size() >= mostVisitors)
        return;
    const auto visitor = m_visitors.insert(m_visitors.end(), Visitor {});
    visitor->connection = std::move(connection);
    visitor->reading
        = m_loop.watch(visitor->connection.number(), [this, visitor] { hear(visitor); });
    visitor->deadline = m_loop.after(patience, [this, visitor] { m_visitors.erase(visitor); });
}

void Instance::hear(std::list<Visitor>::iterator visitor)
{
    std::array<char, longestLine> buffer {};
    const auto size
        = ::recv(visitor->connection.number(), buffer.data(), buffer.size(), MSG_DONTWAIT);
    if (size > 0)
        visitor->line.append(buffer.data(), static_cast<std::size_t>(size));
    const auto end = visitor->line.find('\n');
    if (size > 0 && end == std::string::npos && visitor->line.size() < longestLine)
        return;
    const auto wish = end == std::string::npos
        ? std::nullopt
        : wishFor(std::string_view(visitor->line).substr(0, end));
    const std::string_view answer = wish ? "ok\n" : "unknown\n";
    if (size > 0)
        static_cast<void>(::send(visitor->connection.number(), answer.data(), answer.size(),
            MSG_NOSIGNAL | MSG_DONTWAIT)); // who does not wait for the answer does without
    m_visitors.erase(visitor);
    if (!wish)
        return;
    if (wish == Wish::quit) {
        m_door.stop();
        m_visitors.clear();
    }
    wished(*wish); // the last thing: we may be gone after it
}

} // namespace korvane
