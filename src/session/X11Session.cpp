#include "session/X11Session.h"

namespace korvane {

namespace {

    PixelRect pixelRect(const QRect& rect)
    {
        return { rect.x(), rect.y(), rect.width(), rect.height() };
    }

    QRect qtRect(const PixelRect& rect)
    {
        return { rect.x, rect.y, rect.width, rect.height };
    }

    TrayScreens::Pixels pixelsAt(X11Monitors& monitors, QPoint pixel)
    {
        const auto area = monitors.areaAt(pixel.x(), pixel.y());
        return { qtRect(area.monitor), qtRect(area.visible) };
    }

} // namespace

X11Session::X11Session(MainLoop& loop, const TrayItem& tray)
    : m_platform(loop)
    , m_screens(tray, [this](QPoint pixel) { return pixelsAt(m_platform.monitors(), pixel); })
    , m_stage({ [this](std::uint32_t window) { m_platform.takeKeyboard(window); },
          [this] { m_platform.giveBackKeyboard(); } })
    , m_connections { m_platform.keyboardLeft().connect([this] { panelLost(); }),
        m_platform.connection().closed.connect([this] { closed(); }) }
{
}

void X11Session::tellFrame(std::uint32_t window, const QRect& panel, const QSize& whole)
{
    m_platform.tellWindowFrame(window, pixelRect(panel), whole.width(), whole.height());
}

} // namespace korvane
