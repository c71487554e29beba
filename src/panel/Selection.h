#pragma once

#include "model/ClipItem.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace korvane {

class ClipStore;

/// The displayed list, as `ClipStore::filteredClips` gives it.
using DisplayedClips = std::vector<const ClipItem*>;

/// The place of a clip in the displayed list; none when it is not displayed.
std::optional<std::size_t> indexOf(
    const DisplayedClips& displayed, const std::optional<ClipId>& id);
/// Selects the clip at the place, or the last one where the list has grown shorter than that;
/// clears the selection when the list is empty.
void select(ClipStore& store, const DisplayedClips& displayed, std::size_t index);
/// Selects the first displayed clip, or clears the selection when there is none.
void selectFirst(ClipStore& store);

} // namespace korvane
