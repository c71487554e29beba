#include "panel/view/ShownClips.h"

#include <algorithm>

namespace korvane {

const std::vector<ShownClips::Row>& ShownClips::rows()
{
    // Search and tab are compared here, as another listener may ask before they have been told to us.
    const auto& panel = m_store.panel();
    if (!m_isStale && m_search == panel.panelSearch.value()
        && m_tab == panel.panelFilterTab.value())
        return m_rows;
    m_isStale = false;
    m_search = panel.panelSearch.value();
    m_tab = panel.panelFilterTab.value();
    const auto clips = m_store.filteredClips();
    m_rows.clear();
    m_rows.reserve(clips.size());
    for (const auto* clip : clips)
        m_rows.push_back({ clip->id, clip });
    return m_rows;
}

std::optional<std::size_t> ShownClips::indexOf(const std::optional<ClipId>& id)
{
    if (!id)
        return std::nullopt;
    const auto& all = rows();
    const auto found = std::ranges::find(all, *id, &Row::id);
    return found == all.end() ? std::nullopt
                              : std::optional(static_cast<std::size_t>(found - all.begin()));
}

} // namespace korvane
