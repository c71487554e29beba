#include "app/view/ClipPreviewWindow.h"

#include "app/PreviewPlacement.h"
#include "app/view/TrayScreens.h"
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

ClipPreviewWindow::ClipPreviewWindow(
    TrayScreens& screens, Observable<bool>& isComposited, const KorPanel::FrameTeller& tellFrame)
    : ClipPreviewWindow(screens,
        std::make_unique<KorPanel>(isComposited, tellFrame, KorPanel::Role::preview),
        std::make_unique<ClipPreviewView>())
{
}

ClipPreviewWindow::ClipPreviewWindow(
    TrayScreens& screens, std::unique_ptr<KorPanel> panel, std::unique_ptr<ClipPreviewView> view)
    : m_view(*view)
    , m_window(
          filled(std::move(panel), std::move(view)), [&screens] { return screens.geometry(); }, {})
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
