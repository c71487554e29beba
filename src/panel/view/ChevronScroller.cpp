#include "panel/view/ChevronScroller.h"

#include <utility>

namespace korvane {

namespace {
    double downward(ScrollDirection direction, double points)
    {
        return direction == ScrollDirection::up ? -points : points;
    }
} // namespace

ChevronScroller::ChevronScroller(
    MainLoop& loop, const QWidget& list, std::function<void(double offset)> scrollTo)
    : m_scrollTo(std::move(scrollTo))
    , m_glide(loop, list, 0, [this] { this->scrollTo(m_glide.value()); })
    , m_ticks(loop, [this] { tick(); })
{
}

void ChevronScroller::measure(double offset, double contentHeight, double containerHeight)
{
    const bool isScrolledByUser = !m_isScrolling && offset != m_tracker.offset();
    m_tracker.measure(offset, contentHeight, containerHeight);
    if (isScrolledByUser)
        endGlide();
    if (m_hovered && !m_tracker.isChevronVisible(*m_hovered))
        leave(*m_hovered);
}

void ChevronScroller::setActivation(ChevronActivation activation)
{
    m_activation = activation;
    if (activation == ChevronActivation::click)
        m_ticks.stop();
}

void ChevronScroller::enter(ScrollDirection direction)
{
    m_ticks.stop();
    m_hovered = direction;
    if (m_activation != ChevronActivation::hover || !m_tracker.isChevronVisible(direction))
        return;
    endGlide();
    m_ticks.start();
}

void ChevronScroller::leave(ScrollDirection direction)
{
    if (m_hovered != direction)
        return;
    m_hovered.reset();
    m_ticks.stop();
}

void ChevronScroller::click(ScrollDirection direction)
{
    endGlide();
    m_glideTarget = m_tracker.offsetAfter(downward(direction, chevronScrollStep * approxRowHeight));
    m_glide.goTo(m_glideTarget, chevronClickDuration);
}

void ChevronScroller::stop()
{
    m_hovered.reset();
    m_ticks.stop();
    endGlide();
}

void ChevronScroller::tick()
{
    // The user who clicks while resting there wants to get on: the click has its way first.
    if (m_hovered && !isGliding())
        scrollTo(m_tracker.offsetAfter(downward(*m_hovered, chevronHoverTickPoints)));
}

void ChevronScroller::scrollTo(double offset)
{
    const bool wasScrolling = std::exchange(m_isScrolling, true);
    m_scrollTo(offset);
    m_isScrolling = wasScrolling;
}

void ChevronScroller::endGlide()
{
    m_glideTarget = m_tracker.offset();
    m_glide.setNow(m_glideTarget);
}

} // namespace korvane
