#include "app/view/OverlayScreens.h"

#include "app/Placement.h"
#include "app/view/StageOnOverlay.h"

namespace korvane {

OverlayScreens::OverlayScreens(
    StatusItem& statusItem, Overlay& overlay, StageOnOverlay& stage, MainLoop& loop)
    : m_overlay(overlay)
    , m_stage(stage)
    , m_loop(loop)
    , m_click(statusItem.clicked.connect([this] {
        m_clicked = m_loop.after(std::chrono::milliseconds::zero(), [this] { m_clicked.stop(); });
    }))
    , m_pointer(
          stage.pointerArrived.connect([this](const QPoint& pointer) { pointerArrived(pointer); }))
{
}

Screens::Frames OverlayScreens::look()
{
    // While the panel stands, the output is the one that it stands on.
    if (!m_stage.isOpen()) {
        m_seen = m_overlay.look();
        if (m_clicked.isActive())
            m_stage.awaitPointer();
    }
    return { visible(), statusItem() };
}

Overlay::Sizes OverlayScreens::sizes()
{
    if (!m_seen)
        m_seen = m_overlay.look();
    if (m_seen)
        return *m_seen;
    const auto& assumed = placement::assumedVisibleFrame;
    const QSize size(static_cast<int>(assumed.width), static_cast<int>(assumed.height));
    return { size, size };
}

Rect OverlayScreens::visible()
{
    const auto [output, usable] = sizes();
    const QSize bars = output - usable;
    return { static_cast<double>(m_isBarOnTheRight ? 0 : bars.width()),
        static_cast<double>(m_isBarBelow ? bars.height() : 0), static_cast<double>(usable.width()),
        static_cast<double>(usable.height()) };
}

Rect OverlayScreens::statusItem()
{
    const auto [output, usable] = sizes();
    // What was clicked may have been on a larger output.
    if (m_icon && QRect({}, output).contains(*m_icon))
        return placement::iconAt({ static_cast<double>(m_icon->x()),
                                     static_cast<double>(output.height() - m_icon->y()) },
            visible());
    return placement::iconAtEnd(visible());
}

void OverlayScreens::pointerArrived(const QPoint& pointer)
{
    const QSize output = sizes().output;
    m_icon = pointer;
    m_isBarBelow = pointer.y() > output.height() / 2;
    m_isBarOnTheRight = pointer.x() > output.width() / 2;
    found();
}

ScreenGeometry OverlayScreens::geometry()
{
    return { 0, 0, static_cast<double>(sizes().output.height()) };
}

} // namespace korvane
