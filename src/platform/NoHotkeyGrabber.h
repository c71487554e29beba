#pragma once

#include "hotkey/HotkeyGrabber.h"

namespace korvane {

/// A desktop on which no program can take a key for itself: the user binds one to `korvane --toggle` in
/// the desktop's own settings.
class NoHotkeyGrabber : public HotkeyGrabber {
public:
    bool grab(KeyCode, ModifierMask) override { return false; }
    void release() override { }
};

} // namespace korvane
