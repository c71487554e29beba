#pragma once

#include <QMargins>
#include <QPixmap>
#include <QRect>
#include <QSize>

class QPainter;

namespace korvane {

/// The soft shadow around the panel, where a compositor lets one be seen through. Computed once for
/// each scheme and scale, whatever the panel's size.
class PanelShadow {
public:
    /// The room that it takes on each side of the panel.
    static QMargins margins() { return { 32, 22, 32, 46 }; }

    /// Paints the shadow of a panel; what lies under the panel itself stays clear.
    /// @param strength  opacity of its darkest part, 0 to 1
    void paint(QPainter& painter, const QRect& panel, double strength);

private:
    QPixmap m_around; ///< the shadow of the smallest panel that has all of it
    QSize m_smallest; ///< that panel
    double m_strength = 0;
};

} // namespace korvane
