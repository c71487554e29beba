#include "app/view/PanelWindow.h"

#include "app/view/KorPanel.h"
#include "app/view/PanelStage.h"
#include "app/view/WindowScreens.h"
#include "panel/view/ClipPanelView.h"
#include "panel/view/PanelAccess.h"

#include <utility>

namespace korvane {

namespace {

    std::unique_ptr<KorPanel> makePanel(
        ClipStore& store, PanelController& controller, const PanelWindow::World& world)
    {
        installPanelAccess();
        KorPanel::installAccess();
        auto panel = std::make_unique<KorPanel>(
            world.isComposited, world.tellFrame, KorPanel::Role::panel, world.stage.ground());
        auto view
            = std::make_unique<ClipPanelView>(store, controller, world.loop, world.clipboardText);
        panel->setKeyHandler([&view = *view](const KeyPress& press) { return view.handle(press); });
        panel->setContents(std::move(view));
        return panel;
    }

} // namespace

PanelWindow::PanelWindow(ClipStore& store, PanelController& controller, const World& world)
    : WidgetWindow(
        makePanel(store, controller, world),
        [&screens = world.screens] { return screens.geometry(); }, world.stage)
{
}

} // namespace korvane
