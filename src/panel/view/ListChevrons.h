#pragma once

#include "model/Signal.h"
#include "panel/view/Chevron.h"
#include "panel/view/ChevronScroller.h"
#include "panel/view/ChevronShadow.h"

#include <vector>

class QWidget;

namespace korvane {

class ClipListView;
class PanelController;
class Symbols;

/// The two chevrons over the list's edges: shown where there is more of it, scrolling it.
class ListChevrons {
public:
    /// @param list  a child of `parent`; the chevrons lie above it
    ListChevrons(ClipListView& list, PanelController& controller, MainLoop& loop, Symbols& symbols,
        QWidget* parent);

    /// Puts them over the edges of where the list is now.
    void place();
    /// The panel is hidden.
    void stop() { m_scroller.stop(); }

    Chevron& up() { return m_up; }
    Chevron& down() { return m_down; }

private:
    Chevron::Events events(ScrollDirection direction);
    void showChevrons();
    void show(Chevron& chevron, bool isShown);

    ClipListView& m_list;
    ChevronScroller m_scroller;
    ChevronShadow m_upShadow; // each under its chevron
    ChevronShadow m_downShadow;
    Chevron m_up;
    Chevron m_down;
    std::vector<Connection> m_connections;
};

} // namespace korvane
