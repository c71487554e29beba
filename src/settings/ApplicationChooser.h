#pragma once

#include "settings/Applications.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace korvane {

/// Has the user choose one application in a dialog over the settings window. The rest of the program
/// goes on meanwhile.
class ApplicationChooser {
public:
    virtual ~ApplicationChooser() = default;

    /// @param offered  what the user can choose from at once; any other one can be chosen by its file
    /// @param chosen  called once, with the file of the application (see `Application::file`), or with
    ///                none when the user gives up. Not called where another choice is being made
    virtual void choose(std::vector<Application> offered,
        std::function<void(std::optional<std::string> file)> chosen)
        = 0;
};

} // namespace korvane
