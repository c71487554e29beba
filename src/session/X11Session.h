#pragma once

#include "app/view/StageOfWindows.h"
#include "app/view/TrayScreens.h"
#include "platform/X11Platform.h"
#include "session/Session.h"

#include <array>

namespace korvane {

/// A session of an X server: each of our windows stands where it is put.
class X11Session : public Session {
public:
    /// @param tray  says where the icon is
    X11Session(MainLoop& loop, const TrayItem& tray);

    Pasteboard& pasteboard() override { return m_platform.pasteboard(); }
    Workspace& workspace() override { return m_platform.workspace(); }
    HotkeyGrabber& hotkeyGrabber() override { return m_platform.hotkeyGrabber(); }
    KeyRecorder& keyRecorder() override { return m_platform.keyRecorder(); }
    Keyboard& keyboard() override { return m_platform.keyboard(); }
    Applications& applications() override { return m_platform.applications(); }
    OutsideClicks& outsideClicks() override { return m_platform.outsideClicks(); }
    WindowScreens& screens() override { return m_screens; }
    PanelStage& stage() override { return m_stage; }
    Observable<bool>& isComposited() override { return m_platform.isComposited(); }
    void passKeyboard(std::uint32_t window) override { m_platform.passKeyboard(window); }
    void tellFrame(std::uint32_t window, const QRect& panel, const QSize& whole) override;

private:
    X11Platform m_platform;
    TrayScreens m_screens;
    StageOfWindows m_stage;
    std::array<Connection, 2> m_connections;
};

} // namespace korvane
