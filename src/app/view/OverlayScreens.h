#pragma once

#include "app/view/Overlay.h"
#include "app/view/WindowScreens.h"
#include "model/MainLoop.h"
#include "model/Signal.h"

#include <QPoint>

#include <optional>

namespace korvane {

class StageOnOverlay;

/// The output that the user works on, where the desktop tells neither where the icon in the tray is nor
/// where the bars are. When the icon is clicked, the pointer is on it: that is where the panel hangs, then
/// and at later openings. Before the first click it hangs at the right end of the top edge.
class OverlayScreens : public WindowScreens {
public:
    /// @param statusItem  the icon in the tray
    /// All of them outlive it; it is made before whoever opens the panel by a click on the icon, so that
    /// it hears of the click first.
    OverlayScreens(StatusItem& statusItem, Overlay& overlay, StageOnOverlay& stage, MainLoop& loop);

    Frames look() override;
    ScreenGeometry geometry() override;

private:
    void pointerArrived(const QPoint& pointer);
    Overlay::Sizes sizes();
    Rect visible();
    Rect statusItem();

    Overlay& m_overlay;
    StageOnOverlay& m_stage;
    MainLoop& m_loop;
    std::optional<Overlay::Sizes> m_seen;
    std::optional<QPoint>
        m_icon; // its middle, as far as is known, from the output's top left corner
    bool m_isBarBelow = false;
    bool m_isBarOnTheRight = false;
    Timer m_clicked; // active for the rest of the turn in which the icon was clicked
    Connection m_click;
    Connection m_pointer;
};

} // namespace korvane
