#pragma once

#include "look/view/Symbols.h"
#include "panel/view/ClipListView.h"
#include "panel/view/PanelMetrics.h"
#include "panel/view/ViewFixture.h"
#include "support/Input.h"

namespace korvane::test {

inline constexpr int listHeight = 306; // six rows

/// A list of clips, shown with room for six rows.
struct ListFixture : ViewFixture {
    explicit ListFixture(int clips = 0)
    {
        addNumbered(clips);
        list.resize(metrics::panelWidth, listHeight);
        list.show();
        settle();
    }
    QPointF middleOf(std::size_t index) const { return list.rowRect(index).center(); }

    Symbols symbols;
    ClipListView list { store, controller, loop, symbols, {}, [] {}, nullptr };
};

} // namespace korvane::test
