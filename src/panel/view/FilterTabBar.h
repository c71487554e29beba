#pragma once

#include "look/view/EasedValue.h"
#include "model/ClipStore.h"

#include <QRectF>
#include <QString>
#include <QWidget>

#include <array>
#include <deque>
#include <functional>
#include <optional>
#include <vector>

namespace korvane {

class Symbols;

/// The row of filter tabs: a chip for each, the chosen one green and with its name, both of which
/// move over to another tab when that is chosen.
class FilterTabBar : public QWidget {
public:
    /// @param switchTab  called with the tab that the user has clicked
    FilterTabBar(ClipStore& store, MainLoop& loop, Symbols& symbols,
        std::function<void(FilterTab)> switchTab, QWidget* parent);

    /// Where a tab's chip is now.
    QRectF chip(FilterTab tab) const;
    /// The tab that the bar shows as chosen.
    FilterTab shownTab() const { return m_store.panel().shownTab(); }
    /// Does what a click on the tab does.
    void choose(FilterTab tab) { m_switchTab(tab); }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    using Chips = std::array<QRectF, allFilterTabs.size()>;

    Chips chips() const;
    void shownTabChanged();
    std::optional<FilterTab> tabAt(const QPointF& point) const;
    void setHovered(std::optional<FilterTab> tab);
    void paintChip(QPainter& painter, FilterTab tab, const QRectF& chip);

    ClipStore& m_store;
    Symbols& m_symbols;
    std::function<void(FilterTab)> m_switchTab;
    /// How far each tab is the chosen one, from 0 to 1.
    std::deque<EasedValue> m_chosen;
    std::optional<FilterTab> m_hovered;
    std::optional<FilterTab> m_pressed;
    std::vector<Connection> m_connections;
};

/// The symbol of a tab.
std::string_view symbolOf(FilterTab tab);

} // namespace korvane
