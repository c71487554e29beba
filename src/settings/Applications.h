#pragma once

#include "model/Signal.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// An installed application.
struct Application {
    /// What it is known by wherever it is in front; see `RunningApplication::bundleIdentifier`.
    std::string identifier;
    /// Its name for the user, in the user's language.
    std::string name;
    /// Name of its icon in the user's theme, or the whole path of a picture; empty: it has none.
    std::string icon;
    /// The file that says all this.
    std::string file;

    friend bool operator==(const Application&, const Application&) = default;
};

/// The applications that are installed here.
class Applications {
public:
    virtual ~Applications() = default;

    /// The application of this identifier; none where none is installed.
    virtual std::optional<Application> find(std::string_view identifier) = 0;
    /// Those that the user finds in menus, in no order.
    virtual std::vector<Application> installed() = 0;
    /// Reads the file that says what an application is; none where it does not say that, or cannot be
    /// read.
    virtual std::optional<Application> read(std::string_view file) = 0;
    /// The folders that there are of such files, the one in which users look first at the head.
    virtual std::vector<std::string> folders() = 0;

    /// Some other applications are installed now.
    Signal<> changed;
};

} // namespace korvane
