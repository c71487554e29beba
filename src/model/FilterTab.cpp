#include "model/FilterTab.h"

#include <algorithm>
#include <cassert>
#include <iterator>

namespace korvane {

std::string_view title(FilterTab tab)
{
    switch (tab) {
    case FilterTab::all:
        return "All";
    case FilterTab::pinned:
        return "Pinned";
    case FilterTab::text:
        return "Text";
    case FilterTab::url:
        return "URL";
    case FilterTab::code:
        return "Code";
    case FilterTab::email:
        return "Email";
    case FilterTab::files:
        return "Files";
    case FilterTab::emoji:
        return "Emoji";
    case FilterTab::large:
        return "Large";
    }
    assert(false);
    return {};
}

bool contains(FilterTab tab, const ClipItem& clip)
{
    switch (tab) {
    case FilterTab::all:
        return true;
    case FilterTab::pinned:
        return clip.isPinned;
    case FilterTab::text:
        return clip.type == ClipType::plainText;
    case FilterTab::url:
        return clip.type == ClipType::url;
    case FilterTab::code:
        return clip.type == ClipType::code;
    case FilterTab::email:
        return clip.type == ClipType::email;
    case FilterTab::files:
        return clip.type == ClipType::file;
    case FilterTab::emoji:
        return clip.hasEmoji;
    case FilterTab::large:
        return clip.isOverflow;
    }
    assert(false);
    return false;
}

FilterTab neighbour(FilterTab tab, int steps)
{
    constexpr auto count = static_cast<int>(allFilterTabs.size());
    const auto place = static_cast<int>(
        std::distance(allFilterTabs.begin(), std::ranges::find(allFilterTabs, tab)));
    const auto next = ((place + steps % count) % count + count) % count;
    return allFilterTabs[static_cast<std::size_t>(next)];
}

} // namespace korvane
