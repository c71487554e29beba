#pragma once

#include "model/ClipStore.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace korvane {

/// The displayed clips as the list last asked the store for them: the store searches anew at every
/// question, and a list that is only scrolled or hovered has none.
class ShownClips {
public:
    /// The pointer is good until the list changes, which `clipsChanged` tells. What may be told of
    /// before that, a selection, goes by the identifier.
    struct Row {
        ClipId id;
        const ClipItem* clip;
    };

    explicit ShownClips(const ClipStore& store)
        : m_store(store)
    {
    }

    /// The clips have changed.
    void forget() { m_isStale = true; }
    const std::vector<Row>& rows();
    std::optional<std::size_t> indexOf(const std::optional<ClipId>& id);

private:
    const ClipStore& m_store;
    std::vector<Row> m_rows;
    bool m_isStale = true;
    std::string m_search;
    FilterTab m_tab = FilterTab::all;
};

} // namespace korvane
