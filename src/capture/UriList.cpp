#include "capture/UriList.h"

#include "model/Text.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace korvane {

namespace {

    bool isLetter(char c)
    {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    }
    bool isDigit(char c)
    {
        return c >= '0' && c <= '9';
    }
    char lower(char c)
    {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }

    bool equalIgnoringCase(std::string_view a, std::string_view b)
    {
        return std::ranges::equal(a, b, {}, lower, lower);
    }

    /// The scheme of an absolute URL (RFC 3986, section 3.1), without the colon; empty for none.
    std::string_view scheme(std::string_view entry)
    {
        const auto colon = entry.find(':');
        if (colon == std::string_view::npos || colon == 0 || !isLetter(entry.front()))
            return {};
        const auto name = entry.substr(0, colon);
        const bool isName = std::ranges::all_of(name,
            [](char c) { return isLetter(c) || isDigit(c) || c == '+' || c == '-' || c == '.'; });
        return isName ? name : std::string_view {};
    }

    std::optional<unsigned> hexDigit(char c)
    {
        const char small = lower(c);
        if (isDigit(c))
            return static_cast<unsigned>(c - '0');
        if (small >= 'a' && small <= 'f')
            return static_cast<unsigned>(small - 'a') + 10U;
        return std::nullopt;
    }

    /// None when a percent sign is followed by anything but two hexadecimal digits, or encodes NUL,
    /// which no path can hold.
    std::optional<std::string> percentDecoded(std::string_view encoded)
    {
        std::string decoded;
        decoded.reserve(encoded.size());
        for (std::size_t i = 0; i < encoded.size(); ++i) {
            if (encoded[i] != '%') {
                decoded.push_back(encoded[i]);
                continue;
            }
            const auto high = i + 2 < encoded.size() ? hexDigit(encoded[i + 1]) : std::nullopt;
            const auto low = i + 2 < encoded.size() ? hexDigit(encoded[i + 2]) : std::nullopt;
            if (!high || !low || (*high == 0 && *low == 0))
                return std::nullopt;
            decoded.push_back(static_cast<char>(*high * 16 + *low));
            i += 2;
        }
        return decoded;
    }

    /// The still encoded path of a file URL without its scheme (RFC 8089: "/p", "///p" and
    /// "//localhost/p"); none for a file of another host and for a path that is not absolute.
    std::optional<std::string_view> localPath(std::string_view afterScheme)
    {
        auto path = afterScheme;
        if (path.starts_with("//")) {
            path.remove_prefix(2);
            const auto slash = path.find('/');
            const auto host = path.substr(0, slash);
            if (slash == std::string_view::npos
                || (!host.empty() && !equalIgnoringCase(host, "localhost")))
                return std::nullopt;
            path.remove_prefix(slash);
        }
        if (!path.starts_with('/'))
            return std::nullopt;
        return path;
    }

    std::string withoutSlashAtEnd(std::string path)
    {
        while (path.size() > 1 && path.back() == '/')
            path.pop_back();
        return path;
    }

    /// One entry of the list: a URL or none, and the path if it is one of ours.
    struct Entry {
        bool isUrl = false;
        std::optional<std::string> path;
    };

    Entry entryFrom(std::string_view line)
    {
        const auto name = scheme(line);
        if (name.empty())
            return {};
        // Neither a query nor a fragment is a part of the path.
        const auto rest = line.substr(name.size() + 1);
        const auto decoded = percentDecoded(rest.substr(0, rest.find_first_of("?#")));
        if (!decoded)
            return {};
        if (!equalIgnoringCase(name, "file"))
            return { .isUrl = true, .path = std::nullopt };
        const auto encodedPath = localPath(rest.substr(0, rest.find_first_of("?#")));
        if (!encodedPath)
            return { .isUrl = true, .path = std::nullopt };
        auto path = percentDecoded(*encodedPath);
        return { .isUrl = true,
            .path = path ? std::optional(withoutSlashAtEnd(repairedUtf8(std::move(*path))))
                         : std::nullopt };
    }

    std::string_view withoutBlanksAround(std::string_view line)
    {
        const auto first = line.find_first_not_of(" \t");
        if (first == std::string_view::npos)
            return {};
        return line.substr(first, line.find_last_not_of(" \t") - first + 1);
    }

} // namespace

std::deque<std::string> filePathsFrom(std::string_view uriList)
{
    // CR LF by the RFC, LF from some programs, and a NUL at the end of all from pcmanfm.
    constexpr std::string_view lineEnds("\r\n\0", 3);
    std::deque<std::string> paths;
    while (!uriList.empty()) {
        const auto end = std::min(uriList.find_first_of(lineEnds), uriList.size());
        const auto line = withoutBlanksAround(uriList.substr(0, end));
        uriList.remove_prefix(std::min(end + 1, uriList.size()));
        if (line.empty() || line.starts_with('#'))
            continue;
        auto entry = entryFrom(line);
        if (!entry.isUrl)
            return {};
        if (entry.path)
            paths.push_back(std::move(*entry.path));
    }
    return paths;
}

} // namespace korvane
