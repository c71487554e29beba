#pragma once

#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>

namespace korvane::test {

/// A folder of the test's own, removed with everything in it.
class TempFolder {
public:
    TempFolder()
    {
        std::string name
            = (std::filesystem::temp_directory_path() / "korvane-test.XXXXXX").string();
        m_path = ::mkdtemp(name.data());
    }
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

/// The permission bits of what lies at a path, itself and not where it leads; 0: nothing.
inline mode_t modeOf(const std::filesystem::path& path)
{
    struct stat status { };
    return ::lstat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

/// What lies in a folder.
inline std::set<std::string> namesIn(const std::filesystem::path& folder)
{
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.insert(entry.path().filename());
    return names;
}

} // namespace korvane::test
