#pragma once

#include <cstdlib>
#include <filesystem>
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

} // namespace korvane::test
