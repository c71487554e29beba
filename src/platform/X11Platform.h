#pragma once

#include "platform/qt/QtClipboardWriter.h"
#include "platform/x11/KeyMap.h"
#include "platform/x11/X11Compositor.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Focus.h"
#include "platform/x11/X11HotkeyGrabber.h"
#include "platform/x11/X11KeyRecorder.h"
#include "platform/x11/X11Keyboard.h"
#include "platform/x11/X11Monitors.h"
#include "platform/x11/X11OutsideClicks.h"
#include "platform/x11/X11Pasteboard.h"
#include "platform/x11/X11RawInput.h"
#include "platform/x11/X11Workspace.h"
#include "platform/xdg/DesktopEntries.h"
#include "platform/xdg/XdgApplications.h"

#include <functional>

namespace korvane {

/// Whether there is an X server at the display that DISPLAY names.
bool hasDisplay();

/// The backends of an X11 session, made together because they share one connection. The toolkit's
/// application object must exist.
class X11Platform {
public:
    explicit X11Platform(MainLoop& loop);
    X11Platform(const X11Platform&) = delete;
    X11Platform& operator=(const X11Platform&) = delete;

    X11Connection& connection() { return m_connection; }
    Pasteboard& pasteboard() { return m_pasteboard; }
    Workspace& workspace() { return m_workspace; }
    HotkeyGrabber& hotkeyGrabber() { return m_hotkeyGrabber; }
    KeyRecorder& keyRecorder() { return m_keyRecorder; }
    Applications& applications() { return m_applications; }
    Keyboard& keyboard() { return m_keyboard; }
    OutsideClicks& outsideClicks() { return m_outsideClicks; }
    X11Monitors& monitors() { return m_monitors; }
    Signal<>& keyboardLeft() { return m_focus.left; }
    Observable<bool>& isComposited() { return m_compositor.isRunning(); }

    /// Gives the keyboard to a window of ours that has been shown, and back to whom it was taken from.
    void takeKeyboard(std::uint32_t window);
    void giveBackKeyboard() { m_focus.giveBackKeyboard(); }
    /// See `X11Focus::passTo`.
    void passKeyboard(std::uint32_t window) { m_focus.passTo(window); }
    /// See `korvane::tellWindowFrame`.
    void tellWindowFrame(std::uint32_t window, const PixelRect& visible, int width, int height);

private:
    explicit X11Platform(MainLoop& loop, std::function<bool(xcb_window_t)> isOwnWindow);

    X11Connection m_connection;
    DesktopEntries m_entries;
    XdgApplications m_applications;
    KeyMap m_keyMap;
    X11RawInput m_rawInput;
    QtClipboardWriter m_clipboardWriter;
    X11Pasteboard m_pasteboard;
    X11Workspace m_workspace;
    X11HotkeyGrabber m_hotkeyGrabber;
    X11KeyRecorder m_keyRecorder;
    X11Keyboard m_keyboard;
    X11OutsideClicks m_outsideClicks;
    X11Focus m_focus;
    X11Monitors m_monitors;
    X11Compositor m_compositor;
    // When the shortcut was pressed that the panel's next showing answers.
    xcb_timestamp_t m_lastPressTime = XCB_CURRENT_TIME;
    Connection m_hotkeyPressed;
    Connection m_buttonPressed;
};

} // namespace korvane
