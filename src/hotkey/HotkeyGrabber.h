#pragma once

#include "hotkey/KeyCodes.h"
#include "model/Signal.h"

namespace korvane {

/// Takes one key chord for the whole desktop, so that no other program sees it.
class HotkeyGrabber {
public:
    virtual ~HotkeyGrabber() = default;

    /// Takes the chord, in every state of the lock keys. False: another program holds it, the key
    /// does not exist, or the desktop offers no such service; then nothing is held. A chord that
    /// was held before is released first.
    virtual bool grab(KeyCode keyCode, ModifierMask modifiers) = 0;
    virtual void release() = 0;

    /// The chord was pressed; once for each press, however long it is held.
    Signal<> pressed;
};

} // namespace korvane
