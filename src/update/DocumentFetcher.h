#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

/// Fetches small documents from web servers.
class DocumentFetcher {
public:
    virtual ~DocumentFetcher() = default;

    using Answer = std::function<void(std::optional<std::string>)>;

    /// More than any document of ours holds, in bytes; a server that sends more is not listened to.
    static constexpr std::size_t largestDocument = std::size_t { 64 } * 1024;

    /// Asks the server and returns. The answer comes once, on the main loop and never from within
    /// this call: the whole document, or none where there is no server, it is not the one that it
    /// says it is, it has no such document, sends too much, or has not sent all after five seconds.
    /// No answer comes any more when the fetcher has gone. Several documents may be under way.
    virtual void fetch(std::string_view address, Answer answer) = 0;
};

} // namespace korvane
