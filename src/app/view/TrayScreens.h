#pragma once

#include "app/view/WindowScreens.h"

#include <QPoint>
#include <QRect>

#include <functional>
#include <optional>

namespace korvane {

class TrayItem;

/// The screen that the tray icon is on, as far as the tray tells, in the program's coordinates.
class TrayScreens : public WindowScreens {
public:
    /// The pixels of the monitor at a pixel of the desktop, all of them and those that no bar covers.
    struct Pixels {
        QRect monitor;
        QRect visible;
    };
    using AreaAt = std::function<Pixels(QPoint pixel)>;

    TrayScreens(const TrayItem& tray, AreaAt areaAt);

    Frames look() override;
    ScreenGeometry geometry() override;

private:
    /// The screen in points, in global coordinates.
    struct Area {
        QRectF screen;
        QRectF visible;
    };

    std::optional<QPoint> anchor() const;
    Area area() const;
    Rect statusItem(const Area& here) const;

    const TrayItem& m_tray;
    AreaAt m_areaAt;
    std::optional<Area> m_seen;
};

} // namespace korvane
