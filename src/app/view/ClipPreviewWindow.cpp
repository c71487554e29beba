#include "app/view/ClipPreviewWindow.h"

#include "app/PreviewPlacement.h"
#include "app/view/PanelStage.h"
#include "app/view/WindowScreens.h"
#include "panel/view/ClipPreviewView.h"
#include "panel/view/PanelMetrics.h"

#include <utility>

namespace korvane {

// The text is laid out in the width that the window leaves it.
static_assert(previewplacement::inset == metrics::previewInset);
static_assert(previewplacement::listTop == metrics::listTop);

namespace {

    std::unique_ptr<KorPanel> filled(std::unique_ptr<KorPanel> panel, std::unique_ptr<QWidget> view)
    {
        panel->setContents(std::move(view));
        return panel;
    }

} // namespace

ClipPreviewWindow::ClipPreviewWindow(WindowScreens& screens, PanelStage& stage,
    Observable<bool>& isComposited, const KorPanel::FrameTeller& tellFrame)
    : ClipPreviewWindow(screens, stage,
        std::make_unique<KorPanel>(
            isComposited, tellFrame, KorPanel::Role::preview, stage.ground()),
        std::make_unique<ClipPreviewView>())
{
}

ClipPreviewWindow::ClipPreviewWindow(WindowScreens& screens, PanelStage& stage,
    std::unique_ptr<KorPanel> panel, std::unique_ptr<ClipPreviewView> view)
    : m_view(*view)
    , m_window(
          filled(std::move(panel), std::move(view)), [&screens] { return screens.geometry(); },
          stage)
{
}

void ClipPreviewWindow::setClip(const ClipItem& clip)
{
    m_view.setClip(clip);
}

double ClipPreviewWindow::textHeight(double width)
{
    return m_view.textHeight(width);
}

} // namespace korvane
