#pragma once

#include "app/view/PanelStage.h"

#include <cstdint>
#include <functional>

namespace korvane {

/// A desktop on which our windows stand where they are put: the panel and the preview are windows.
class StageOfWindows : public PanelStage {
public:
    /// Gives the panel's window the keyboard and takes it away again, which only the desktop's backend
    /// can; either may be empty.
    struct Keyboard {
        std::function<void(std::uint32_t window)> take;
        std::function<void()> giveBack;
    };

    explicit StageOfWindows(Keyboard keyboard = {});

    QWidget* ground() override { return nullptr; }
    void show(KorPanel& panel) override;
    void hide(KorPanel& panel) override;
    bool isVisible(const KorPanel& panel) const override;
    void takeKeyboard(KorPanel& panel) override;

private:
    Keyboard m_keyboard;
};

} // namespace korvane
