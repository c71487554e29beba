#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace korvane {

/// An application that has, or had, the front window.
struct RunningApplication {
    /// The desktop entry's identifier (or the identifier by which the built-in list of password
    /// managers knows it); absent where nothing identifies the application.
    std::optional<std::string> bundleIdentifier;
    /// Its name for the user, in the user's language.
    std::optional<std::string> localizedName;
    /// The front window, for the backend alone; 0: none.
    std::uint64_t window = 0;
    /// False: which application it was cannot be told any more, only that there was one. Nothing that
    /// it copied may be kept, as it may have been any.
    bool isKnown = true;
};

/// The applications on the desktop.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// The application in front at this moment; none when nothing is.
    virtual std::optional<RunningApplication> frontmost() = 0;
    /// Brings its window to the front and gives it the keyboard; nothing when the window has gone.
    virtual void activate(const RunningApplication& application) = 0;
};

} // namespace korvane
