#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>

namespace korvane {

/// Lets the user choose JSON files, in the desktop's own dialogs where it has some. The program goes
/// on while one is open. The answer comes later and once: none when the user has given up.
class FileDialogs {
public:
    virtual ~FileDialogs() = default;

    using Answer = std::function<void(std::optional<std::filesystem::path>)>;

    /// Where a new file shall be. A file that is there already will not be replaced; the user is not
    /// asked about it, unless the desktop's own dialog does so by itself.
    /// @param proposedName  stands in the dialog's field
    virtual void chooseNewFile(std::string_view proposedName, Answer answer) = 0;
    /// One file that exists.
    virtual void chooseFile(Answer answer) = 0;
};

} // namespace korvane
