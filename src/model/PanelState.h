#pragma once

#include "model/ClipItem.h"
#include "model/FilterTab.h"
#include "model/Signal.h"

#include <optional>
#include <string>

namespace korvane {

/// What the panel shows now. Owned by the store, so that every view and the shell see the same.
struct PanelState {
    /// The selected clip; it need not be in the displayed list.
    Observable<std::optional<ClipId>> selectedClipID;
    /// Vertical middle of the selected row, measured downward from the panel's top edge, in points.
    double selectedRowMidY = 0;
    /// Rises by one each time that the panel is opened.
    Observable<int> panelOpenCount;
    /// The search text, exactly as typed.
    Observable<std::string> panelSearch;
    /// The tab that filters the displayed list.
    Observable<FilterTab> panelFilterTab { FilterTab::all };
    /// While a switch is under way, the tab that the bar already shows as chosen.
    Observable<std::optional<FilterTab>> tabDisplayed;
    /// True from the start of a switch until shortly after the list has changed.
    Observable<bool> isTabSwitching { false };

    /// The tab that the bar shows as chosen.
    FilterTab shownTab() const { return tabDisplayed.value().value_or(panelFilterTab.value()); }
};

} // namespace korvane
