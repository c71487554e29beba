#include "model/FilteredClips.h"

#include "model/SearchKeys.h"

#include <cstddef>
#include <utility>

namespace korvane {

const std::vector<const ClipItem*>& FilteredClips::of(
    const std::vector<ClipItem>& clips, SearchKeys& keys, FilterTab tab, const std::string& search)
{
    const bool isOfTheSame = !m_isStale && m_tab == tab;
    if (isOfTheSame && m_search == search)
        return m_clips;
    const auto earlier = std::exchange(m_needle, SearchNeedle(search, keys.localeId()));
    m_search = search;

    if (!m_needle.isEmpty())
        keys.makeAll(clips);
    const auto isFound = [&](const ClipItem& clip) {
        return m_needle.isEmpty()
            || m_needle.occursIn(keys.key(static_cast<std::size_t>(&clip - clips.data())));
    };
    if (isOfTheSame && m_needle.extends(earlier)) {
        std::erase_if(m_clips, [&](const ClipItem* clip) { return !isFound(*clip); });
        return m_clips;
    }
    m_isStale = false;
    m_tab = tab;
    m_clips.clear();
    for (const auto& clip : clips)
        if (contains(tab, clip) && isFound(clip))
            m_clips.push_back(&clip);
    return m_clips;
}

} // namespace korvane
