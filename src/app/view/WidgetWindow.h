#pragma once

#include "app/Windows.h"
#include "app/view/KorPanel.h"
#include "app/view/ScreenGeometry.h"

#include <functional>
#include <memory>

namespace korvane {

class PanelStage;

/// A panel as the program places it.
class WidgetWindow : public PlacedWindow {
public:
    /// @param stage  what the panel was made on; outlives it
    WidgetWindow(
        std::unique_ptr<KorPanel> panel, std::function<ScreenGeometry()> screen, PanelStage& stage);

    /// The visible panel; its shadow lies outside.
    Rect frame() const override;
    void setFrame(const Rect& frame) override;
    void show() override;
    void hide() override;
    bool isVisible() const override;

    KorPanel& panel() { return *m_panel; }

private:
    std::unique_ptr<KorPanel> m_panel;
    std::function<ScreenGeometry()> m_screen;
    PanelStage& m_stage;
};

} // namespace korvane
