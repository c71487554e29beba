#include "app/view/WidgetWindow.h"

#include "app/view/PanelStage.h"

#include <utility>

namespace korvane {

WidgetWindow::WidgetWindow(
    std::unique_ptr<KorPanel> panel, std::function<ScreenGeometry()> screen, PanelStage& stage)
    : m_panel(std::move(panel))
    , m_screen(std::move(screen))
    , m_stage(stage)
{
    m_panel->setKeyboardWanted([this] { m_stage.takeKeyboard(*m_panel); });
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
    m_stage.show(*m_panel);
}

void WidgetWindow::hide()
{
    m_stage.hide(*m_panel);
}

bool WidgetWindow::isVisible() const
{
    return m_stage.isVisible(*m_panel);
}

} // namespace korvane
