#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

/// How far a part of an answer has come.
enum class HttpState { unfinished, whole, broken, tooLarge };

/// What a web server answers to one question, without the body (HTTP/1.1, RFC 9112).
struct HttpHead {
    HttpState state = HttpState::unfinished;
    std::size_t size = 0; ///< what it takes of the bytes that have come, once it is whole
    int status = 0;
    /// Where a redirection leads; empty without one.
    std::string location;
    std::optional<std::size_t> length; ///< of the body, in bytes, where it is told
    bool isChunked = false;
};

/// All that a head may take, with those of the interim answers before it, in bytes. A server that sends
/// more of it is not listened to.
inline constexpr std::size_t largestHead = std::size_t { 32 } * 1024;

/// Reads what has come so far.
/// @param hasEnded  the server has closed the connection
HttpHead readHttpHead(std::string_view received, bool hasEnded);

/// The body of an answer, read as it comes. What has been read is not gone through again, so that a server
/// which sends it in very small pieces cannot keep us busy.
class HttpBody {
public:
    /// @param largest  more than that many bytes of it are too many
    HttpBody(const HttpHead& head, std::size_t largest);

    /// Takes the bytes that have come since the last call, up to the first that answers not `unfinished`.
    /// @param hasEnded  the server has closed the connection
    HttpState take(std::string_view bytes, bool hasEnded);
    /// What has been read; all of it once `take` has answered `whole`.
    const std::string& bytes() const { return m_bytes; }

private:
    HttpState takeChunks(std::string_view come);

    std::optional<std::size_t> m_length;
    bool m_isChunked;
    std::size_t m_largest;
    std::size_t m_taken = 0;
    std::string m_pending; // the chunk of which not all has come
    std::string m_bytes;
};

} // namespace korvane
