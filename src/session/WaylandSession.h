#pragma once

#include "app/view/OverlayScreens.h"
#include "app/view/StageOnOverlay.h"
#include "platform/wayland/ChordNumber.h"
#include "platform/wayland/WaylandPlatform.h"
#include "platform/wayland/qt/LayerOverlay.h"
#include "platform/wayland/qt/LayerShell.h"
#include "session/Session.h"

#include <memory>
#include <vector>

namespace korvane {

class Log;
class StatusItem;

/// A session of a Wayland compositor that tells us of copies and gives the panel a layer: the panel and its
/// preview stand on one transparent surface over the output.
class WaylandSession : public Session {
public:
    /// To be called before the toolkit's application object is made.
    static void prepareToolkit() { LayerShell::prepareToolkit(); }
    /// @param tray  the icon; whoever opens the panel by a click on it listens to it later than this
    /// @return none where the compositor has gone, or offers no layers
    static std::unique_ptr<WaylandSession> open(MainLoop& loop, StatusItem& tray, Log& log);

    Pasteboard& pasteboard() override { return m_platform.pasteboard(); }
    Workspace& workspace() override { return m_platform.workspace(); }
    HotkeyGrabber& hotkeyGrabber() override { return *m_hotkeyGrabber; }
    KeyRecorder& keyRecorder() override { return m_platform.keyRecorder(); }
    Keyboard& keyboard() override { return m_platform.keyboard(); }
    Applications& applications() override { return m_platform.applications(); }
    OutsideClicks& outsideClicks() override { return m_stage; }
    WindowScreens& screens() override { return m_screens; }
    PanelStage& stage() override { return m_stage; }
    Observable<bool>& isComposited() override { return m_isComposited; }
    void passKeyboard(std::uint32_t) override { m_stage.lendKeyboard(); }
    // The panel is a part of a window, which casts its shadow within that.
    void tellFrame(std::uint32_t, const QRect&, const QSize&) override { }

private:
    std::unique_ptr<HotkeyGrabber> makeHotkeyGrabber(MainLoop& loop);
    WaylandSession(std::unique_ptr<LayerShell> shell, MainLoop& loop, StatusItem& tray, Log& log);

    std::unique_ptr<LayerShell> m_shell;
    LayerOverlay m_overlay;
    StageOnOverlay m_stage;
    OverlayScreens m_screens;
    WaylandPlatform m_platform;
    ChordNumbers m_chordNumbers;
    std::unique_ptr<HotkeyGrabber> m_hotkeyGrabber;
    Observable<bool> m_isComposited { true };
    std::vector<Connection> m_connections;
};

} // namespace korvane
