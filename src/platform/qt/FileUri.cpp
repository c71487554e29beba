#include "platform/qt/FileUri.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <system_error>

namespace korvane {

namespace {

    char lowerCase(char c)
    {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }

    /// Takes a beginning away, whatever its letter case.
    bool skip(std::string_view& text, std::string_view beginning)
    {
        const auto start = text.substr(0, beginning.size());
        if (!std::ranges::equal(start, beginning, {}, lowerCase))
            return false;
        text.remove_prefix(beginning.size());
        return true;
    }

    /// The byte of two hexadecimal digits.
    std::optional<char> byteOf(std::string_view digits)
    {
        unsigned value = 0;
        const auto* const end = digits.data() + digits.size();
        const auto read = std::from_chars(digits.data(), end, value, 16);
        if (digits.size() != 2 || read.ec != std::errc() || read.ptr != end)
            return std::nullopt;
        return static_cast<char>(value);
    }

    std::optional<std::string> decoded(std::string_view text)
    {
        std::string bytes;
        for (std::size_t at = 0; at < text.size(); ++at) {
            std::optional<char> byte = text[at];
            if (byte == '%') {
                byte = byteOf(text.substr(at + 1, 2));
                at += 2;
            }
            if (!byte || *byte == '\0') // no file's name has one
                return std::nullopt;
            bytes += *byte;
        }
        return bytes;
    }

} // namespace

std::optional<std::filesystem::path> fileOf(std::string_view uri)
{
    // A query or a fragment belongs to no file: in a name, both signs are encoded.
    if (!skip(uri, "file:") || uri.find_first_of("?#") != std::string_view::npos)
        return std::nullopt;
    if (skip(uri, "//"))
        skip(uri, "localhost");
    const auto path = decoded(uri);
    if (!path || !path->starts_with('/'))
        return std::nullopt;
    return *path;
}

} // namespace korvane
