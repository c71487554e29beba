#pragma once

#include "app/Windows.h"
#include "app/view/KorPanel.h"
#include "app/view/ScreenGeometry.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace korvane {

/// A panel as the program places it.
class WidgetWindow : public PlacedWindow {
public:
    /// Gives the window the keyboard and takes it away again, which only the desktop's backend can;
    /// either may be empty.
    struct Keyboard {
        std::function<void(std::uint32_t window)> take;
        std::function<void()> giveBack;
    };

    WidgetWindow(
        std::unique_ptr<KorPanel> panel, std::function<ScreenGeometry()> screen, Keyboard keyboard);

    /// The visible panel; its shadow lies outside.
    Rect frame() const override;
    void setFrame(const Rect& frame) override;
    void show() override;
    void hide() override;
    bool isVisible() const override;

    KorPanel& panel() { return *m_panel; }

private:
    void takeKeyboard();

    std::unique_ptr<KorPanel> m_panel;
    std::function<ScreenGeometry()> m_screen;
    Keyboard m_keyboard;
};

} // namespace korvane
