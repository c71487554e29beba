#include "platform/qt/HttpAnswer.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <system_error>

namespace korvane {

namespace {

    constexpr std::string_view lineEnd = "\r\n";
    constexpr std::string_view headEnd = "\r\n\r\n";
    constexpr std::string_view blanks = " \t";

    bool isSame(std::string_view a, std::string_view b)
    {
        return std::ranges::equal(a, b, [](unsigned char left, unsigned char right) {
            return std::tolower(left) == std::tolower(right);
        });
    }

    std::string_view trimmed(std::string_view text)
    {
        const auto begin = text.find_first_not_of(blanks);
        if (begin == std::string_view::npos)
            return {};
        return text.substr(begin, text.find_last_not_of(blanks) + 1 - begin);
    }

    std::optional<std::size_t> numberIn(std::string_view text, int base)
    {
        std::size_t number = 0;
        const auto* const end = text.data() + text.size();
        const auto [stop, error] = std::from_chars(text.data(), end, number, base);
        if (text.empty() || error != std::errc() || stop != end)
            return std::nullopt;
        return number;
    }

    /// Takes the first line off, without its end.
    std::string_view takeLine(std::string_view& text)
    {
        const auto end = text.find(lineEnd);
        const auto line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + lineEnd.size());
        return line;
    }

    /// "HTTP/1.1 200 OK"; none: it is no such line.
    std::optional<int> statusIn(std::string_view line)
    {
        if (line.size() < 12 || !line.starts_with("HTTP/1.") || line[8] != ' ')
            return std::nullopt;
        const auto status = numberIn(line.substr(9, 3), 10);
        if (!status || *status < 100)
            return std::nullopt;
        return static_cast<int>(*status);
    }

    bool readFields(std::string_view fields, HttpHead& head)
    {
        while (!fields.empty()) {
            const auto line = takeLine(fields);
            const auto colon = line.find(':');
            if (colon == std::string_view::npos)
                return false;
            const auto name = line.substr(0, colon);
            const auto value = trimmed(line.substr(colon + 1));
            if (isSame(name, "location")) {
                head.location = value;
            } else if (isSame(name, "transfer-encoding")) {
                head.isChunked = isSame(value, "chunked");
                if (!head.isChunked)
                    return false; // we have asked for no other
            } else if (isSame(name, "content-length")) {
                const auto length = numberIn(value, 10);
                if (!length || (head.length && head.length != length))
                    return false;
                head.length = length;
            }
        }
        return true;
    }

    HttpState takeHead(std::string_view received, bool hasEnded, HttpHead& head)
    {
        auto rest = received;
        for (;;) {
            const auto end = rest.find(headEnd);
            const auto used = received.size() - rest.size()
                + (end == std::string_view::npos ? rest.size() : end);
            if (used > largestHead)
                return HttpState::tooLarge;
            constexpr std::string_view begin = "HTTP/1.";
            if (!rest.starts_with(begin.substr(0, std::min(rest.size(), begin.size()))))
                return HttpState::broken;
            if (end == std::string_view::npos)
                return hasEnded ? HttpState::broken : HttpState::unfinished;
            auto lines = rest.substr(0, end);
            rest.remove_prefix(end + headEnd.size());
            const auto status = statusIn(takeLine(lines));
            if (!status)
                return HttpState::broken;
            if (*status < 200)
                continue; // an interim answer: the one proper is still to come
            head.status = *status;
            head.size = received.size() - rest.size();
            return readFields(lines, head) ? HttpState::whole : HttpState::broken;
        }
    }

    /// Takes the next chunk off, and appends what is in it to the body. Whole: it was the last one.
    /// None: there may be another one behind it.
    std::optional<HttpState> takeChunk(
        std::string_view& rest, std::size_t largest, std::string& body)
    {
        auto behind = rest;
        if (rest.find(lineEnd) == std::string_view::npos)
            return rest.size() > largestHead ? HttpState::tooLarge : HttpState::unfinished;
        const auto line = takeLine(behind);
        const auto size = numberIn(trimmed(line.substr(0, line.find(';'))), 16);
        if (!size)
            return HttpState::broken;
        if (*size == 0)
            return HttpState::whole; // what may follow tells of nothing that we ask
        if (*size > largest - body.size())
            return HttpState::tooLarge;
        if (behind.size() < *size + lineEnd.size())
            return HttpState::unfinished;
        body += behind.substr(0, *size);
        behind.remove_prefix(*size);
        if (!takeLine(behind).empty())
            return HttpState::broken;
        rest = behind;
        return std::nullopt;
    }

} // namespace

HttpHead readHttpHead(std::string_view received, bool hasEnded)
{
    HttpHead head;
    head.state = takeHead(received, hasEnded, head);
    return head;
}

HttpBody::HttpBody(const HttpHead& head, std::size_t largest)
    : m_length(head.length)
    , m_isChunked(head.isChunked)
    , m_largest(largest)
{
}

HttpState HttpBody::take(std::string_view bytes, bool hasEnded)
{
    if (m_isChunked) {
        const auto state = takeChunks(bytes);
        return hasEnded && state == HttpState::unfinished ? HttpState::broken : state;
    }
    m_bytes += bytes;
    if (m_length.value_or(m_bytes.size()) > m_largest)
        return HttpState::tooLarge;
    if (!m_length)
        return hasEnded ? HttpState::whole : HttpState::unfinished;
    if (m_bytes.size() < *m_length)
        return hasEnded ? HttpState::broken : HttpState::unfinished;
    m_bytes.resize(*m_length);
    return HttpState::whole;
}

HttpState HttpBody::takeChunks(std::string_view come)
{
    // Of a body in small pieces most is what stands between them.
    m_taken += come.size();
    if (m_taken > largestHead + 4 * m_largest)
        return HttpState::tooLarge;
    m_pending += come;
    std::string_view rest = m_pending;
    std::optional<HttpState> state;
    while (!state)
        state = takeChunk(rest, m_largest, m_bytes);
    m_pending.erase(0, m_pending.size() - rest.size());
    return *state;
}

} // namespace korvane
