#pragma once

#include "model/Signal.h"

#include <QRect>
#include <QSize>

#include <cstdint>

namespace korvane {

class Applications;
class HotkeyGrabber;
class KeyRecorder;
class Keyboard;
class OutsideClicks;
class PanelStage;
class Pasteboard;
class WindowScreens;
class Workspace;

/// What differs from one kind of desktop to another: its backends, and how our windows stand on it. Made
/// once, when the toolkit's application object exists.
class Session {
public:
    virtual ~Session() = default;

    virtual Pasteboard& pasteboard() = 0;
    virtual Workspace& workspace() = 0;
    virtual HotkeyGrabber& hotkeyGrabber() = 0;
    virtual KeyRecorder& keyRecorder() = 0;
    virtual Keyboard& keyboard() = 0;
    virtual Applications& applications() = 0;
    virtual OutsideClicks& outsideClicks() = 0;
    virtual WindowScreens& screens() = 0;
    virtual PanelStage& stage() = 0;
    /// Whether what is transparent of a window shows what lies under it.
    virtual Observable<bool>& isComposited() = 0;

    /// Has a window of ours, given by its number, get the keyboard from the panel when it becomes the
    /// active one.
    virtual void passKeyboard(std::uint32_t window) = 0;
    /// Tells the desktop which part of a window, given by its number, is the panel and which only its shadow.
    virtual void tellFrame(std::uint32_t window, const QRect& panel, const QSize& whole) = 0;

    /// The panel must close: the user has gone elsewhere, or the desktop has taken it away.
    Signal<> panelLost;
    /// The display server has gone. Told once.
    Signal<> closed;
};

} // namespace korvane
