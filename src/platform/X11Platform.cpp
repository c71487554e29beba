#include "platform/X11Platform.h"

#include "platform/qt/ToolkitConnection.h"
#include "platform/x11/X11WindowFrame.h"

#include <utility>

namespace korvane {

bool hasDisplay()
{
    auto* const connection = xcb_connect(nullptr, nullptr);
    const bool isThere = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return isThere;
}

X11Platform::X11Platform(MainLoop& loop)
    : X11Platform(loop, windowsOf(toolkitConnection()))
{
}

X11Platform::X11Platform(MainLoop& loop, std::function<bool(xcb_window_t)> isOwnWindow)
    : m_connection(loop)
    , m_entries(loop, DesktopEntries::standardFolders())
    , m_applications(m_entries)
    , m_keyMap(m_connection, loop)
    , m_rawInput(m_connection)
    , m_clipboardWriter(m_connection)
    , m_pasteboard(m_connection, loop, m_clipboardWriter)
    , m_workspace(m_connection, m_entries, isOwnWindow)
    , m_hotkeyGrabber(m_connection, m_keyMap)
    , m_keyRecorder(m_connection, m_keyMap, loop)
    , m_keyboard(m_connection, m_keyMap, m_rawInput,
          { [this] { return m_workspace.isTerminalInFront(); },
              [this] { m_pasteboard.writePrimaryToo(); } })
    , m_outsideClicks(m_connection, m_rawInput, isOwnWindow)
    , m_focus(m_connection, loop, std::move(isOwnWindow))
    , m_monitors(m_connection)
    , m_compositor(m_connection)
    , m_hotkeyPressed(m_hotkeyGrabber.pressed.connect([this] {
        m_lastPressTime = m_hotkeyGrabber.lastPressTime();
        m_focus.keyIsOurs();
    }))
    , m_buttonPressed(m_rawInput.buttonPressed.connect(
          [this](const ButtonPress& press) { m_focus.pressedAt(press.time); }))
{
}

void X11Platform::takeKeyboard(std::uint32_t window)
{
    // The window was shown over the toolkit's connection: the server must have heard of that before
    // it is asked on ours to give the window the keyboard.
    awaitToolkitRequests();
    const auto time = std::exchange(m_lastPressTime, XCB_CURRENT_TIME);
    // A program that took the keyboard after the press would keep it, by the time that we say; but
    // a panel that is seen and does not hear the user is worse.
    if (!m_focus.takeKeyboard(window, time))
        m_focus.takeKeyboard(window, XCB_CURRENT_TIME);
}

void X11Platform::tellWindowFrame(
    std::uint32_t window, const PixelRect& visible, int width, int height)
{
    // The window must be known to the server before it is spoken of on our connection.
    awaitToolkitRequests();
    korvane::tellWindowFrame(m_connection, window, visible, width, height);
}

} // namespace korvane
