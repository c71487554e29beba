#pragma once

#include "model/FilterTab.h"
#include "panel/view/AccessiblePart.h"

#include <vector>

namespace korvane {

class FilterTabBar;

/// The row of filter tabs as assistive technology sees it: a list of tabs, one of them selected.
class FilterTabAccess : public QAccessibleWidget {
public:
    explicit FilterTabAccess(FilterTabBar& bar);

    int childCount() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

    QAccessibleInterface* tab(FilterTab tab) const { return child(static_cast<int>(tab)); }

    /// None from the moment on that the bar is being destroyed: the toolkit asks for it until then.
    FilterTabBar* bar() const;

private:
    std::vector<RegisteredPart> m_tabs;
};

} // namespace korvane
