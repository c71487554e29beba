#include "app/view/WidgetWindow.h"

#include <cmath>
#include <utility>

namespace korvane {

namespace {
    int whole(double points)
    {
        return static_cast<int>(std::lround(points));
    }
} // namespace

WidgetWindow::WidgetWindow(
    std::unique_ptr<KorPanel> panel, std::function<ScreenGeometry()> screen, Keyboard keyboard)
    : m_panel(std::move(panel))
    , m_screen(std::move(screen))
    , m_keyboard(std::move(keyboard))
{
    m_panel->setKeyboardWanted([this] { takeKeyboard(); });
}

Rect WidgetWindow::frame() const
{
    const auto screen = m_screen();
    const auto frame = m_panel->visibleFrame();
    return { frame.x() - screen.left, screen.top + screen.height - frame.y() - frame.height(),
        static_cast<double>(frame.width()), static_cast<double>(frame.height()) };
}

void WidgetWindow::setFrame(const Rect& frame)
{
    const auto screen = m_screen();
    m_panel->setVisibleFrame({ whole(screen.left + frame.x),
        whole(screen.top + screen.height - frame.top()), whole(frame.width), whole(frame.height) });
}

void WidgetWindow::show()
{
    m_panel->show();
    m_panel->raise();
    takeKeyboard();
}

void WidgetWindow::hide()
{
    // Before the window goes: the server would hand the keyboard to nobody in particular.
    if (m_keyboard.giveBack && m_panel->isVisible())
        m_keyboard.giveBack();
    m_panel->hide();
}

void WidgetWindow::takeKeyboard()
{
    if (m_keyboard.take)
        m_keyboard.take(static_cast<std::uint32_t>(m_panel->winId()));
}

bool WidgetWindow::isVisible() const
{
    return m_panel->isVisible();
}

} // namespace korvane
