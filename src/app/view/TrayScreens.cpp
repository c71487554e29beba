#include "app/view/TrayScreens.h"

#include "app/Placement.h"
#include "app/view/TrayItem.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

    QScreen* screenOf(const std::optional<QPoint>& point)
    {
        QScreen* screen = point ? QGuiApplication::screenAt(*point) : nullptr;
        return screen ? screen : QGuiApplication::primaryScreen();
    }

    // The toolkit keeps the top left corner of a screen where it is in pixels, and scales from there.
    QPoint inPixels(const QScreen& screen, QPoint point)
    {
        const QPointF inside
            = QPointF(point - screen.geometry().topLeft()) * screen.devicePixelRatio();
        return screen.geometry().topLeft() + inside.toPoint();
    }
    QRectF inPoints(const QScreen& screen, const QRect& pixels)
    {
        const QPointF corner = screen.geometry().topLeft();
        const double scale = screen.devicePixelRatio();
        return { corner + (QPointF(pixels.topLeft()) - corner) / scale,
            QSizeF(pixels.size()) / scale };
    }

    /// Relative to the screen's bottom left corner, upward.
    Rect turnedOver(const QRectF& rect, const QRectF& screen)
    {
        return { rect.x() - screen.x(), screen.bottom() - rect.bottom(), rect.width(),
            rect.height() };
    }

} // namespace

TrayScreens::TrayScreens(const TrayItem& tray, AreaAt areaAt)
    : m_tray(tray)
    , m_areaAt(std::move(areaAt))
{
}

std::optional<QPoint> TrayScreens::anchor() const
{
    const QRect icon = m_tray.geometry();
    return icon.isEmpty() ? m_tray.lastClick() : std::optional(icon.center());
}

TrayScreens::Area TrayScreens::area() const
{
    const auto point = anchor();
    const QScreen* screen = screenOf(point);
    if (!screen) {
        const auto& assumed = placement::assumedVisibleFrame;
        const QRectF all(assumed.x, assumed.y, assumed.width, assumed.height);
        return { all, all };
    }
    const auto pixels = m_areaAt(inPixels(*screen, point.value_or(screen->geometry().center())));
    if (pixels.monitor.isEmpty())
        return { screen->geometry(), screen->availableGeometry() };
    return { inPoints(*screen, pixels.monitor), inPoints(*screen, pixels.visible) };
}

Screens::Frames TrayScreens::look()
{
    m_seen = area();
    return { turnedOver(m_seen->visible, m_seen->screen), statusItem(*m_seen) };
}

Rect TrayScreens::statusItem(const Area& here) const
{
    if (const QRect icon = m_tray.geometry(); !icon.isEmpty())
        return turnedOver(QRectF(icon), here.screen);
    const Rect visible = turnedOver(here.visible, here.screen);
    const auto click = m_tray.lastClick();
    if (!click)
        return placement::iconAtEnd(visible);
    return placement::iconAt(
        { click->x() - here.screen.x(), here.screen.bottom() - click->y() }, visible);
}

ScreenGeometry TrayScreens::geometry()
{
    if (!m_seen)
        m_seen = area();
    return { m_seen->screen.left(), m_seen->screen.top(), m_seen->screen.height() };
}

} // namespace korvane
