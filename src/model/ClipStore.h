#pragma once

#include "model/ClipItem.h"
#include "model/FilteredClips.h"
#include "model/HistoryFile.h"
#include "model/Limits.h"
#include "model/MainLoop.h"
#include "model/OverflowFiles.h"
#include "model/PanelState.h"
#include "model/SearchKeys.h"
#include "model/Signal.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

class Log;
class Preferences;

/// The clipboard history: one list of clips, newest first, its three limits, and the panel's state.
/// Every change is on the disk before the operation returns. No operation fails towards its caller:
/// an unknown identifier is ignored, and a file that cannot be written leaves the list as it is.
class ClipStore {
public:
    /// Prepares the folders, reads the limits, loads the history. Nothing is evicted here: a
    /// history above the limits is trimmed by the next `add` or change of a limit.
    /// @param dataFolder  the folder of "clips.json" and "overflow"; made where it is missing
    ClipStore(const std::filesystem::path& dataFolder, Preferences& preferences, MainLoop& loop,
        Log& log);
    ~ClipStore();
    ClipStore(const ClipStore&) = delete;
    ClipStore& operator=(const ClipStore&) = delete;

    /// Newest first. Valid until the next operation that changes the list.
    const std::vector<ClipItem>& clips() const { return m_clips; }
    /// The clips that the panel shows: in its tab, and with its search text in their text, source
    /// application or own name; in the order of the history. Valid until the next operation that
    /// changes the list, the tab or the search.
    const std::vector<const ClipItem*>& filteredClips() const;
    /// The first clip with this identifier, or none.
    const ClipItem* find(const ClipId& id) const;

    /// Puts a new clip on top, unless the newest unpinned clip has the same text; then evicts what
    /// breaks the limits. A text above the size limit goes to a file of its own.
    /// @return the clip that stands for it now: itself, or the one with the same text; none when its
    ///         file could not be written
    std::optional<ClipId> add(ClipItem clip);
    /// Makes the changes that belong together, as the files of one copy do: they are saved once, and
    /// told once, before this returns.
    void savingOnce(const std::function<void()>& changes);
    void togglePin(const ClipId& id);
    /// An empty name removes the clip's name; a blank one is kept as it is.
    void rename(const ClipId& id, std::string_view name);
    /// Removes every clip with this identifier, pinned or not, and the given clip's overflow file.
    void deleteClip(const ClipItem& clip);
    /// Counts one use. The clip keeps its place.
    void markUsed(const ClipId& id);
    /// Removes all but the pinned clips.
    void clearUnpinned();

    /// Writes all clips to a new file "Korvane_export_<seconds>.json" in the folder for temporary
    /// files, readable by this user only.
    /// @return the file, also when it could not be written, deliberately: then there is none
    std::filesystem::path exportHistory() const;
    /// Takes in the clips of an export, or of another history file, that are not in the list yet. The
    /// list is then in the order of the clips' capture, newest first, and trimmed to the limits. A
    /// file that cannot be read, or is wrong anywhere, changes nothing.
    void importHistory(const std::filesystem::path& file);

    int maxClips() const { return m_limits.maxClips; }
    int maxClipSizeKB() const { return m_limits.maxClipSizeKB; }
    int maxTotalSizeMB() const { return m_limits.maxTotalSizeMB; }
    void setMaxClips(int count);
    /// Holds for later clips only; no clip is converted.
    void setMaxClipSizeKB(int kilobytes);
    void setMaxTotalSizeMB(int megabytes);
    /// Evicts the lowest unpinned clips until count and size limits hold. Pinned clips stay, even
    /// when they alone break a limit. The caller saves.
    void enforceLimits();
    /// What counts against `maxTotalSizeMB`, in bytes: an overflow clip weighs its whole content.
    std::int64_t totalBytes() const;

    /// What copying and pasting must use: the overflow file's content, or the clip's text where
    /// there is none or it cannot be read as UTF-8.
    std::string fullText(const ClipItem& clip) const;

    /// The clip last put back from the panel, and when.
    const std::optional<ClipId>& lastUsedID() const { return m_lastUsedID; }
    std::optional<TimePoint> lastUsedTimestamp() const { return m_lastUsedTimestamp; }

    /// "clips.json".
    const std::filesystem::path& fileURL() const { return m_history.path(); }
    const std::filesystem::path& overflowDir() const { return m_overflow.folder(); }

    PanelState& panel() { return m_panel; }
    const PanelState& panel() const { return m_panel; }

    /// The list has changed and the file agrees with it; once for each operation.
    Signal<> clipsChanged;
    /// A limit has changed, here or in the preferences.
    Signal<> limitsChanged;

private:
    void save();
    void setLimit(int& limit, std::string_view key, int value);
    void saveAndTell();
    void removeFilesOfGone();
    void insertFirst(ClipItem clip);
    /// Removes the clips for whose index the answer is true, and their keys; how many those were.
    template <typename IsGone>
    std::size_t removeWhere(const IsGone& isGone);
    /// The index of the first clip with this identifier; the size of the list when there is none.
    std::size_t indexOf(const ClipId& id) const;
    const ClipItem* newestUnpinned() const;
    void makeKeysSoon();

    Preferences& m_preferences;
    MainLoop& m_loop;
    HistoryFile m_history;
    OverflowFiles m_overflow;
    Limits m_limits;
    std::vector<ClipItem> m_clips;
    // Left the list, and their files are still there: these go when the list is on the disk, so that
    // a crash in between leaves nothing that the history on the disk still needs.
    std::vector<ClipItem> m_goneWithFiles;
    bool m_isSavingLater = false;
    bool m_hasUnsaved = false;
    mutable SearchKeys m_keys; // one for each clip; missing ones are made when they are needed
    mutable FilteredClips m_filtered;
    std::optional<ClipId> m_lastUsedID;
    std::optional<TimePoint> m_lastUsedTimestamp;
    PanelState m_panel;
    Timer m_makingKeys;
    Connection m_preferencesChanged;
};

} // namespace korvane
