#include "app/view/StageOfWindows.h"

#include "app/view/KorPanel.h"

#include <utility>

namespace korvane {

StageOfWindows::StageOfWindows(Keyboard keyboard)
    : m_keyboard(std::move(keyboard))
{
}

void StageOfWindows::show(KorPanel& panel)
{
    panel.show();
    panel.raise();
    takeKeyboard(panel);
}

void StageOfWindows::hide(KorPanel& panel)
{
    // Before the window goes: the server would hand the keyboard to nobody in particular.
    if (m_keyboard.giveBack && panel.takesKeyboard() && panel.isVisible())
        m_keyboard.giveBack();
    panel.hide();
}

bool StageOfWindows::isVisible(const KorPanel& panel) const
{
    return panel.isVisible();
}

void StageOfWindows::takeKeyboard(KorPanel& panel)
{
    if (m_keyboard.take && panel.takesKeyboard())
        m_keyboard.take(static_cast<std::uint32_t>(panel.winId()));
}

} // namespace korvane
