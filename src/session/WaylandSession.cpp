#include "session/WaylandSession.h"

#include "platform/NoHotkeyGrabber.h"
#include "platform/qt/KGlobalAccelGrabber.h"
#include "platform/wayland/CompositorServices.h"

#include <utility>

namespace korvane {

std::unique_ptr<WaylandSession> WaylandSession::open(MainLoop& loop, StatusItem& tray, Log& log)
{
    auto shell = LayerShell::find();
    if (!shell)
        return nullptr;
    std::unique_ptr<WaylandSession> session(
        new WaylandSession(std::move(shell), loop, tray, log)); // the constructor is ours alone
    return session->m_platform.connection().isOpen() ? std::move(session) : nullptr;
}

WaylandSession::WaylandSession(
    std::unique_ptr<LayerShell> shell, MainLoop& loop, StatusItem& tray, Log& log)
    : m_shell(std::move(shell))
    , m_overlay(*m_shell, log)
    , m_stage(m_overlay, loop)
    , m_screens(tray, m_overlay, m_stage, loop)
    , m_platform(loop, m_shell->display(), [this] { return m_stage.isOpen(); })
    , m_chordNumbers(m_platform.user())
{
    m_hotkeyGrabber = makeHotkeyGrabber(loop);
    m_connections.push_back(m_stage.lost.connect([this] { panelLost(); }));
    m_connections.push_back(m_platform.connection().lost.connect([this] { closed(); }));
}

std::unique_ptr<HotkeyGrabber> WaylandSession::makeHotkeyGrabber(MainLoop& loop)
{
    if (!CompositorServices::of(m_platform.connection()).isKde())
        return std::make_unique<NoHotkeyGrabber>();
    auto grabber = std::make_unique<KGlobalAccelGrabber>(
        loop, [this](KeyCode keyCode, ModifierMask modifiers) {
            return m_chordNumbers.numberOf(keyCode, modifiers);
        });
    m_connections.push_back(m_platform.user().changed.connect(
        [grabber = grabber.get()] { grabber->followKeyboard(); }));
    return grabber;
}

} // namespace korvane
