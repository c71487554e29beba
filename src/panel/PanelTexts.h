#pragma once

#include "model/ClipItem.h"
#include "model/FilterTab.h"
#include "model/MainLoop.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// Every text of the panel, as pure functions.
namespace paneltexts {
    inline constexpr std::string_view productName = "Korvane";
    inline constexpr std::string_view privateBadge = "PRIVATE";
    inline constexpr std::string_view preferencesToolTip = "Preferences";
    inline constexpr std::string_view searchPlaceholder = "Search...";
    inline constexpr std::string_view renamePlaceholder = "Name...";
    inline constexpr std::string_view largeMarkToolTip = "Large clip — stored on disk";
    inline constexpr std::string_view missingFileToolTip = "The file is no longer there";
    inline constexpr std::string_view dot = "·";
    /// The last component of a path, without slashes; "/" for a path of slashes alone.
    std::string_view lastPathComponent(std::string_view path);

    /// The clip's own name, or else the file's name, or else the text; on one line.
    std::string rowTitle(const ClipItem& clip);
    /// The line under the title, item by item: source application, dot, age, and for a large clip
    /// another dot and its size. The first dot stands there without an application as well.
    std::vector<std::string> metaItems(const ClipItem& clip, TimePoint now);

    /// A number of bytes in the largest unit that it reaches; whole units are truncated.
    std::string byteSize(std::int64_t bytes);

    /// "⌘1" to "⌘9" and "⌘0" for the first ten rows, empty for all others.
    std::string shortcutBadge(std::size_t index);

    /// The kind of a clip in words.
    std::string_view kindName(ClipType type);
    /// A row for someone who does not see it: title, kind, source, age, marks and place.
    /// @param index  the row's place in the displayed list, from 0
    /// @param count  how many rows there are
    std::string rowDescription(
        const ClipItem& clip, TimePoint now, std::size_t index, std::size_t count);

    /// What tab and search leave, for someone who does not see the list: "5 clips", "No clips",
    /// "Code, 5 clips, " and the selected row.
    /// @param newTab  the tab, where that is new as well
    /// @param row  the description of the selected row, where it is not told otherwise
    std::string filterAnnouncement(
        std::optional<FilterTab> newTab, std::size_t count, std::string_view row);

    enum class RowAction { copy, pasteDirectly, reveal, togglePin, rename, quickLook, remove };
    /// One line of a row's context menu; without an action it is a divider.
    struct RowMenuItem {
        std::string_view title;
        std::optional<RowAction> action;
    };
    std::vector<RowMenuItem> rowMenu(const ClipItem& clip);

    /// "42 clips / 3 MB". Never less than 1 KB, deliberately.
    std::string totals(std::size_t clipCount, std::int64_t totalBytes);
    /// What the totals are measured against.
    std::string totalsToolTip(std::size_t clipCount, int maxClips, int maxTotalSizeMB);
    /// How full the history is, by count or by size, whichever is nearer to its limit: below a
    /// half, from there on, from three quarters on, from nine tenths on.
    enum class FillLevel { low, half, high, full };
    FillLevel fillLevel(
        std::size_t clipCount, int maxClips, std::int64_t totalBytes, int maxTotalSizeMB);

    std::string_view privateModeToolTip(bool isPrivate);
} // namespace paneltexts

} // namespace korvane
