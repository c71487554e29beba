#pragma once

#include "model/ClipItem.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>

namespace korvane {

class Log;

/// Keeps the whole content of very large clips, each in a file of its own, named by the clip's
/// identifier; the history holds only the beginning of such a text.
class OverflowFiles {
public:
    OverflowFiles(const std::filesystem::path& folder, Log& log);

    const std::filesystem::path& folder() const { return m_folder; }

    /// Writes the clip's text to its file and makes it an overflow clip. A failed write is logged,
    /// leaves the clip as it was and returns false.
    bool divert(ClipItem& clip) const;
    /// What copying and pasting must use: the file's content, or the clip's text where there is no
    /// file or it cannot be read as UTF-8.
    std::string fullText(const ClipItem& clip) const;
    /// Removes the files of clips that have gone. A failure is ignored: a file left behind does no
    /// harm. A file that a clip which stays names as well is left where it is: records that came in
    /// from elsewhere may name the file of another clip.
    void remove(std::span<const ClipItem> gone, std::span<const ClipItem> staying) const;

private:
    /// The clip's file, unless its path leads out of our folder: a history that was edited or came
    /// from elsewhere must never make us read or remove another file of the user.
    std::optional<std::filesystem::path> fileOf(const ClipItem& clip) const;

    std::filesystem::path m_folder;
    std::string m_folderText; // as the history can hold it: in UTF-8, whatever the folder is called
    Log& m_log;
};

} // namespace korvane
