#pragma once

#include "model/ClipItem.h"

#include <filesystem>
#include <optional>
#include <span>
#include <system_error>
#include <vector>

namespace korvane {

/// The clips of a file as they stand in it, by the strict rules of `decodeClips`; none when it cannot
/// be read or is wrong anywhere.
std::optional<std::vector<ClipItem>> readClips(const std::filesystem::path& file);

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
