#pragma once

#include "hotkey/KeyCodes.h"
#include "model/Signal.h"

namespace korvane {

/// The desktop's keyboard: type a chord into whatever is in front, hear what the user types.
class Keyboard {
public:
    virtual ~Keyboard() = default;

    /// Types one key with exactly these modifiers, whatever the user holds at that moment. Command
    /// with V means "paste" and is typed as the target's own paste chord.
    virtual void typeChord(KeyCode keyCode, ModifierMask modifiers) = 0;
    /// Begins to tell of every key press on the desktop. False: that is not possible here.
    virtual bool listen() = 0;

    /// A key was pressed in any program, with Ctrl reported as Command and Super as Control: the
    /// Command key of this desktop is Ctrl.
    Signal<KeyPress> keyDown;
};

} // namespace korvane
