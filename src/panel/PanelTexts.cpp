#include "panel/PanelTexts.h"

#include "panel/OneLine.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace korvane::paneltexts {

namespace {

    constexpr std::int64_t kilobyte = 1024;
    constexpr std::int64_t megabyte = kilobyte * 1024;
    constexpr std::int64_t gigabyte = megabyte * 1024;

    /// With one decimal, and a point in every locale.
    std::string gigabytes(std::int64_t bytes)
    {
        std::array<char, 32> digits {};
        const double value = static_cast<double>(bytes) / static_cast<double>(gigabyte);
        const auto end = std::to_chars(
            digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, 1);
        return std::string(digits.data(), end.ptr) + " GB";
    }

    bool hasShownSize(const ClipItem& clip)
    {
        return clip.isOverflow && clip.overflowByteCount;
    }

} // namespace

std::string_view lastPathComponent(std::string_view path)
{
    const auto last = path.find_last_not_of('/');
    if (last == std::string_view::npos)
        return path.substr(0, 1);
    const auto slash = path.find_last_of('/', last);
    const auto first = slash == std::string_view::npos ? 0 : slash + 1;
    return path.substr(first, last - first + 1);
}

std::string rowTitle(const ClipItem& clip)
{
    if (clip.customName && !clip.customName->empty())
        return onOneLine(*clip.customName);
    return onOneLine(clip.type == ClipType::file ? lastPathComponent(clip.text) : clip.text);
}

std::vector<std::string> metaItems(const ClipItem& clip, TimePoint now)
{
    std::vector<std::string> items;
    if (clip.sourceApp)
        items.push_back(onOneLine(*clip.sourceApp));
    items.emplace_back(dot);
    items.push_back(relativeAge(clip, now));
    if (hasShownSize(clip)) {
        items.emplace_back(dot);
        items.push_back(byteSize(*clip.overflowByteCount));
    }
    return items;
}

std::string byteSize(std::int64_t bytes)
{
    if (bytes < kilobyte)
        return std::to_string(bytes) + " B";
    if (bytes < megabyte)
        return std::to_string(bytes / kilobyte) + " KB";
    if (bytes < gigabyte)
        return std::to_string(bytes / megabyte) + " MB";
    return gigabytes(bytes);
}

std::string shortcutBadge(std::size_t index)
{
    if (index > 9)
        return {};
    return "⌘" + std::to_string((index + 1) % 10);
}

std::string_view kindName(ClipType type)
{
    switch (type) {
    case ClipType::plainText:
        return "Text";
    case ClipType::url:
        return "URL";
    case ClipType::email:
        return "Email";
    case ClipType::code:
        return "Code";
    case ClipType::file:
        return "File";
    }
    return {};
}

std::string rowDescription(
    const ClipItem& clip, TimePoint now, std::size_t index, std::size_t count)
{
    std::string description = rowTitle(clip);
    const auto append = [&description](std::string_view part) {
        description += ", ";
        description += part;
    };
    append(kindName(clip.type));
    if (clip.sourceApp)
        append(onOneLine(*clip.sourceApp));
    append(relativeAge(clip, now));
    if (clip.isPinned)
        append("pinned");
    if (clip.isOverflow)
        append("large");
    if (hasShownSize(clip))
        append(byteSize(*clip.overflowByteCount));
    append(std::to_string(index + 1) + " of " + std::to_string(count));
    return description;
}

std::string filterAnnouncement(
    std::optional<FilterTab> newTab, std::size_t count, std::string_view row)
{
    std::string text;
    if (newTab)
        text.append(title(*newTab)).append(", ");
    if (count == 0)
        text += newTab ? "no clips" : "No clips";
    else
        text += std::to_string(count) + (count == 1 ? " clip" : " clips");
    if (!row.empty())
        text.append(", ").append(row);
    return text;
}

std::vector<RowMenuItem> rowMenu(const ClipItem& clip)
{
    std::vector<RowMenuItem> menu {
        { "Copy", RowAction::copy },
        { "Paste Directly", RowAction::pasteDirectly },
    };
    // A file clip is revealed by a click on its row.
    if (clip.isOverflow)
        menu.push_back({ "Reveal in Finder", RowAction::reveal });
    menu.push_back({});
    menu.push_back({ clip.isPinned ? "Unpin" : "Pin", RowAction::togglePin });
    menu.push_back({ "Rename...", RowAction::rename });
    menu.push_back({ "Quick Look", RowAction::quickLook });
    menu.push_back({});
    menu.push_back({ "Delete", RowAction::remove });
    return menu;
}

std::string totals(std::size_t clipCount, std::int64_t totalBytes)
{
    // Not the rule of a single clip: there is no unit below the kilobyte here, and never none.
    const auto size = totalBytes < megabyte
        ? std::to_string(std::max<std::int64_t>(totalBytes / kilobyte, 1)) + " KB"
        : byteSize(totalBytes);
    return std::to_string(clipCount) + " clips / " + size;
}

std::string totalsToolTip(std::size_t clipCount, int maxClips, int maxTotalSizeMB)
{
    return "Total: " + std::to_string(clipCount) + " / " + std::to_string(maxClips) + " clips · "
        + std::to_string(maxTotalSizeMB) + " MB limit";
}

FillLevel fillLevel(
    std::size_t clipCount, int maxClips, std::int64_t totalBytes, int maxTotalSizeMB)
{
    const double byCount
        = maxClips >= 1 ? static_cast<double>(clipCount) / static_cast<double>(maxClips) : 0;
    const auto mostBytes = std::max<std::int64_t>(maxTotalSizeMB * megabyte, 1);
    const double bySize = static_cast<double>(totalBytes) / static_cast<double>(mostBytes);
    const double level = std::max(byCount, bySize);
    // Low is green and half is grey, deliberately: the warning begins with high.
    if (level >= 0.9)
        return FillLevel::full;
    if (level >= 0.75)
        return FillLevel::high;
    return level >= 0.5 ? FillLevel::half : FillLevel::low;
}

std::string_view privateModeToolTip(bool isPrivate)
{
    return isPrivate ? "Disable Private Mode" : "Enable Private Mode";
}

} // namespace korvane::paneltexts
