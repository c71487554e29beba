#pragma once

#include <string_view>

namespace korvane {

/// The system log. A clip's text is never logged.
class Log {
public:
    virtual ~Log() = default;

    /// Writes one whole line; the caller prefixes it with "Korvane: ".
    virtual void line(std::string_view text) = 0;
};

} // namespace korvane
