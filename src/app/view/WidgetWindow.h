#pragma once

#include "app/Windows.h"
#include "app/view/KorPanel.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace korvane {

/// Where the screen lies that windows are placed on: its top left corner in global coordinates, in
/// which y grows downward, and its height, all in points.
struct ScreenGeometry {
    double left = 0;
    double top = 0;
    double height = 0;
};

/// A panel as the program places it. The program counts upward from the screen's bottom left corner,
/// the toolkit downward from the desktop's top left; that is turned over here and nowhere else.
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
