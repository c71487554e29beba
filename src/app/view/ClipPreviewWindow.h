#pragma once

#include "app/view/WidgetWindow.h"
#include "model/Signal.h"

namespace korvane {

class ClipPreviewView;
class WindowScreens;

/// The preview, whole: a window like the panel's, which the keyboard never goes to, over its contents.
class ClipPreviewWindow : public PreviewWindow {
public:
    /// @param screens  knows the screen on which the panel stands
    /// @param stage    the panel's; outlives the window
    ClipPreviewWindow(WindowScreens& screens, PanelStage& stage, Observable<bool>& isComposited,
        const KorPanel::FrameTeller& tellFrame = {});

    void setClip(const ClipItem& clip) override;
    double textHeight(double width) override;

    Rect frame() const override { return m_window.frame(); }
    void setFrame(const Rect& frame) override { m_window.setFrame(frame); }
    void show() override { m_window.show(); }
    void hide() override { m_window.hide(); }
    bool isVisible() const override { return m_window.isVisible(); }

    KorPanel& panel() { return m_window.panel(); }
    ClipPreviewView& view() { return m_view; }

private:
    ClipPreviewWindow(WindowScreens& screens, PanelStage& stage, std::unique_ptr<KorPanel> panel,
        std::unique_ptr<ClipPreviewView> view);

    ClipPreviewView& m_view; // the panel's contents
    WidgetWindow m_window;
};

} // namespace korvane
