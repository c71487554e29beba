#include "platform/xdg/BaseFolders.h"

#include "model/Files.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <system_error>

namespace korvane {

namespace {
    namespace fs = std::filesystem;

    /// Longer ones leave no room for a socket's name: its whole path has 107 bytes at most (unix(7)).
    constexpr std::size_t longestRuntimePath = 80;

    std::optional<std::string> homeOfAccount()
    {
        std::array<char, 16384> buffer {};
        passwd entry {};
        passwd* found = nullptr;
        ::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found);
        return found != nullptr && entry.pw_dir != nullptr
            ? std::optional<std::string>(entry.pw_dir)
            : std::nullopt;
    }

    std::optional<fs::path> absolute(const std::optional<std::string>& value)
    {
        return value && value->starts_with('/') ? std::optional<fs::path>(*value) : std::nullopt;
    }

    /// A folder, not a link to one, of the user's own, which nobody else can write to.
    bool isPrivateFolder(const fs::path& folder)
    {
        struct stat status { };
        return ::lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode)
            && status.st_uid == ::getuid() && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
    }
} // namespace

FolderSources FolderSources::ofProcess()
{
    return { [](const char* name) {
                const char* const value = std::getenv(name);
                return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
            },
        homeOfAccount };
}

std::optional<BaseFolders> findBaseFolders(const FolderSources& sources)
{
    auto home = absolute(sources.variable("HOME"));
    if (!home)
        home = absolute(sources.accountHome());
    const auto folder = [&](const char* variable, const char* inHome) {
        const auto named = absolute(sources.variable(variable));
        return named || !home ? named : std::optional(*home / inHome);
    };
    const auto data = folder("XDG_DATA_HOME", ".local/share");
    const auto config = folder("XDG_CONFIG_HOME", ".config");
    if (!data || !config)
        return std::nullopt;
    return BaseFolders { *data, *config, absolute(sources.variable("TMPDIR")).value_or("/tmp") };
}

std::error_code makeDataFolder(const BaseFolders& folders, std::string_view name)
{
    const auto error = makeFolder(folders.dataHome);
    if (error && ::access(folders.dataHome.c_str(), F_OK) != 0)
        return error;
    static_cast<void>(makeFolder(folders.dataHome / name));
    return {};
}

std::optional<fs::path> findRuntimeFolder(
    const FolderSources& sources, const fs::path& fallbackParent)
{
    auto named = absolute(sources.variable("XDG_RUNTIME_DIR"));
    if (named && named->native().size() <= longestRuntimePath && isPrivateFolder(*named))
        return named;
    const auto own = fallbackParent / ("korvane-" + std::to_string(::getuid()));
    // It fails when the folder is there already; whether it is ours is looked at next.
    static_cast<void>(::mkdir(own.c_str(), S_IRWXU));
    return isPrivateFolder(own) ? std::optional(own) : std::nullopt;
}

} // namespace korvane
