#include "app/view/WidgetWindow.h"

#include <utility>

namespace korvane {

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
    return m_screen().upward(m_panel->visibleFrame());
}

void WidgetWindow::setFrame(const Rect& frame)
{
    m_panel->setVisibleFrame(m_screen().onDesktop(frame));
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
