#include "panel/view/ListChevrons.h"

#include "panel/PanelController.h"
#include "panel/view/ClipListView.h"
#include "panel/view/PanelMetrics.h"

#include <QCursor>

namespace korvane {

namespace {
    constexpr int fromEdge = 6;
    static_assert(approxRowHeight == metrics::rowPitch);
} // namespace

ListChevrons::ListChevrons(ClipListView& list, PanelController& controller, MainLoop& loop,
    Symbols& symbols, QWidget* parent)
    : m_list(list)
    , m_scroller(loop, list, [&list](double offset) { list.setOffset(offset); })
    , m_upShadow(parent)
    , m_downShadow(parent)
    , m_up(ScrollDirection::up, symbols, list, events(ScrollDirection::up), parent)
    , m_down(ScrollDirection::down, symbols, list, events(ScrollDirection::down), parent)
{
    m_connections.push_back(list.measured.connect(
        [this] { m_scroller.measure(m_list.offset(), m_list.contentHeight(), m_list.height()); }));
    m_connections.push_back(m_scroller.tracker().changed.connect([this] { showChevrons(); }));
    m_connections.push_back(controller.observeChevronActivation(
        [this](ChevronActivation activation) { m_scroller.setActivation(activation); }));
}

void ListChevrons::place()
{
    const auto list = m_list.geometry();
    const int left = list.left() + (list.width() - Chevron::chevronWidth) / 2;
    m_up.move(left, list.top() + fromEdge);
    m_down.move(left, list.top() + list.height() - fromEdge - Chevron::chevronHeight);
    m_upShadow.placeUnder(m_up.geometry());
    m_downShadow.placeUnder(m_down.geometry());
}

Chevron::Events ListChevrons::events(ScrollDirection direction)
{
    return { [this, direction] { m_scroller.enter(direction); },
        [this, direction] { m_scroller.leave(direction); },
        [this, direction] { m_scroller.click(direction); } };
}

void ListChevrons::showChevrons()
{
    const bool hasMoreAbove = m_scroller.tracker().isChevronVisible(ScrollDirection::up);
    const bool hasMoreBelow = m_scroller.tracker().isChevronVisible(ScrollDirection::down);
    m_upShadow.setVisible(hasMoreAbove);
    m_downShadow.setVisible(hasMoreBelow);
    show(m_up, hasMoreAbove);
    show(m_down, hasMoreBelow);
}

void ListChevrons::show(Chevron& chevron, bool isShown)
{
    if (!isShown && chevron.isVisible()) {
        const auto pointer = QCursor::pos(); // which asks the display
        if (chevron.rect().contains(chevron.mapFromGlobal(pointer)))
            m_list.ignoreClicksAt(pointer);
    }
    chevron.setVisible(isShown);
}

} // namespace korvane
