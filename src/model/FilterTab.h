#pragma once

#include "model/ClipItem.h"

#include <array>
#include <string_view>

namespace korvane {

/// The tabs of the panel. They overlap on purpose: a pinned address is in All, Pinned and URL.
enum class FilterTab { all, pinned, text, url, code, email, files, emoji, large };

/// All of them, in the order of the tab bar, which is also the ring that the Tab key walks.
inline constexpr std::array allFilterTabs { FilterTab::all, FilterTab::pinned, FilterTab::text,
    FilterTab::url, FilterTab::code, FilterTab::email, FilterTab::files, FilterTab::emoji,
    FilterTab::large };

/// The title of a tab, which is also its name ("All" … "Large").
std::string_view title(FilterTab tab);
/// Whether the tab shows the clip.
bool contains(FilterTab tab, const ClipItem& clip);
/// The tab `steps` further on in the ring, in either direction.
FilterTab neighbour(FilterTab tab, int steps);

} // namespace korvane
