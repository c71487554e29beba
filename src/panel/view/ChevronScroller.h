#pragma once

#include "look/view/EasedValue.h"
#include "model/Preferences.h"
#include "panel/ChevronTicks.h"
#include "panel/ClipScrollTracker.h"

#include <functional>
#include <optional>

namespace korvane {

/// What the two chevrons do to the list: scroll it on and on while the pointer rests on one, and by
/// some rows at a click.
class ChevronScroller {
public:
    /// @param list      what is scrolled
    /// @param scrollTo  scrolls it to an offset; it answers by `measure` before it returns
    ChevronScroller(
        MainLoop& loop, const QWidget& list, std::function<void(double offset)> scrollTo);

    /// The list's measures, whenever one has changed, whoever has changed it.
    void measure(double offset, double contentHeight, double containerHeight);
    ClipScrollTracker& tracker() { return m_tracker; }

    /// Whether resting on a chevron scrolls, or a click alone. A change to "click" ends what resting
    /// has begun; after one to "hover" the pointer has to come anew.
    void setActivation(ChevronActivation activation);

    /// The pointer has come to a chevron, and left it again. A chevron that disappears is left.
    void enter(ScrollDirection direction);
    void leave(ScrollDirection direction);
    /// Acts whether resting scrolls or not; resting goes on when it has been carried out.
    void click(ScrollDirection direction);
    /// The list is no longer seen: everything stops.
    void stop();

private:
    void tick();
    void scrollTo(double offset);
    bool isGliding() const { return m_glide.value() != m_glideTarget; }
    void endGlide();

    std::function<void(double offset)> m_scrollTo;
    ClipScrollTracker m_tracker;
    ChevronActivation m_activation = ChevronActivation::hover;
    std::optional<ScrollDirection> m_hovered;
    /// While we scroll ourselves; any other scroll is the user's, and ends ours.
    bool m_isScrolling = false;
    double m_glideTarget = 0;
    EasedValue m_glide;
    ChevronTicks m_ticks;
};

} // namespace korvane
