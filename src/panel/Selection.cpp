#include "panel/Selection.h"

#include "model/ClipStore.h"

#include <algorithm>

namespace korvane {

std::optional<std::size_t> indexOf(const DisplayedClips& displayed, const std::optional<ClipId>& id)
{
    const auto found
        = std::ranges::find_if(displayed, [&id](const ClipItem* clip) { return clip->id == id; });
    if (found == displayed.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - displayed.begin());
}

void select(ClipStore& store, const DisplayedClips& displayed, std::size_t index)
{
    auto& selected = store.panel().selectedClipID;
    if (displayed.empty())
        selected.set(std::nullopt);
    else
        selected.set(displayed[std::min(index, displayed.size() - 1)]->id);
}

void selectFirst(ClipStore& store)
{
    select(store, store.filteredClips(), 0);
}

} // namespace korvane
