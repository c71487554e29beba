#pragma once

#include "app/view/WidgetWindow.h"
#include "look/view/PanelLineEdit.h"
#include "model/Signal.h"

namespace korvane {

class ClipStore;
class MainLoop;
class PanelController;
class WindowScreens;

/// The panel, whole: its window over its contents, its keys led to the controller.
class PanelWindow : public WidgetWindow {
public:
    /// What the window needs of the desktop; all of it outlives the window.
    struct World {
        MainLoop& loop;
        WindowScreens& screens;
        Observable<bool>& isComposited;
        TextReader clipboardText;
        PanelStage& stage;
        /// Tells the desktop which part of the window is the panel and which only its shadow.
        KorPanel::FrameTeller tellFrame = {};
    };

    PanelWindow(ClipStore& store, PanelController& controller, const World& world);
};

} // namespace korvane
