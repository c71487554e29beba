#pragma once

#include <optional>
#include <string>

namespace korvane {

/// Whether the desktop starts the program when the user logs in.
class LoginItem {
public:
    virtual ~LoginItem() = default;

    virtual bool isEnabled() const = 0;
    /// Has the program started at each login, or no longer.
    /// @return why that could not be done, in words for the user; none when it was
    virtual std::optional<std::string> setEnabled(bool isEnabled) = 0;
};

} // namespace korvane
