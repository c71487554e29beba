#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace korvane {

/// Where the user's files lie, after the XDG Base Directory Specification (freedesktop). Absolute
/// paths; none of the folders need exist.
struct BaseFolders {
    /// `XDG_DATA_HOME`, or ".local/share" in the home folder: the history lies below it.
    std::filesystem::path dataHome;
    /// `XDG_CONFIG_HOME`, or ".config" in the home folder: the preferences lie below it.
    std::filesystem::path configHome;
    /// `TMPDIR`, or "/tmp" (POSIX).
    std::filesystem::path temporary;

    friend bool operator==(const BaseFolders&, const BaseFolders&) = default;
};

/// What the places of the folders are computed from.
struct FolderSources {
    /// An environment variable, none when it is not set.
    std::function<std::optional<std::string>(const char* name)> variable;
    /// The home folder of the user's account, for when `HOME` is of no use.
    std::function<std::optional<std::string>()> accountHome;

    /// Those of this process.
    static FolderSources ofProcess();
};

/// What is said on standard error when there are no base folders.
inline constexpr std::string_view noHomeText
    = "korvane: there is no home folder: neither HOME nor the user's account names one";

/// The folders; a variable that is empty or holds a relative path counts as absent, as the
/// specification asks. None where a home folder is needed and there is none: the program cannot run.
std::optional<BaseFolders> findBaseFolders(const FolderSources& sources);

/// Makes the program's own folder for data, where that is possible.
/// @param name  the folder's name in the place for data
/// @return why the home cannot be used: there is no place for data and none can be made. That what is
///         there cannot be written is none of that
std::error_code makeDataFolder(const BaseFolders& folders, std::string_view name);

/// A folder for sockets and locks that nobody but the user can write to: `XDG_RUNTIME_DIR` where it
/// is the user's own, else a folder of ours (0700) in `fallbackParent`, made when missing. None when
/// somebody else holds that name.
std::optional<std::filesystem::path> findRuntimeFolder(
    const FolderSources& sources, const std::filesystem::path& fallbackParent = "/tmp");

} // namespace korvane
