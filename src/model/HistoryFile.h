#pragma once

#include "model/ClipItem.h"

#include <filesystem>
#include <span>
#include <system_error>
#include <vector>

namespace korvane {

/// The file that holds the history: one JSON array of clips, newest first.
class HistoryFile {
public:
    explicit HistoryFile(std::filesystem::path path);

    const std::filesystem::path& path() const { return m_path; }

    /// The clips as they stand in the file. A file that is missing, cannot be read or is wrong
    /// anywhere gives none.
    std::vector<ClipItem> load() const;
    /// Replaces the file, whole or not at all. The new one is on the disk when this returns.
    std::error_code save(std::span<const ClipItem> clips) const;

private:
    std::filesystem::path m_path;
};

} // namespace korvane
