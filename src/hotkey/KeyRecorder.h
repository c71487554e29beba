#pragma once

#include "hotkey/KeyCodes.h"
#include "model/Signal.h"

#include <cstdint>

namespace korvane {

/// Listens to the keyboard itself for a while, so that the user can press the key chord that is to be
/// the shortcut: what is pressed then comes to us and acts nowhere else.
class KeyRecorder {
public:
    virtual ~KeyRecorder() = default;

    /// Begins: until `stop`, a key press reaches neither a program nor a key binding of the desktop.
    /// A user who goes to another window has the keyboard there, and is listened to again after
    /// coming back. False: somebody else holds the keyboard, or the desktop offers no such service;
    /// what is then left are the presses that our own window gets (see `windowKeyPressed`).
    /// @param window  the desktop's number of the window of ours that the user is in
    virtual bool start(std::uint64_t window) = 0;
    /// Ends; nothing when it has not begun. A key that is still down does not act elsewhere either
    /// before it has been let go. May be called while `keyDown` is told.
    virtual void stop() = 0;
    /// A window of ours has got a key press by itself; told as if it had been heard here, provided
    /// that this has begun.
    /// @param key    the desktop's own number of the key
    /// @param state  the desktop's own number for the modifiers and the layout in force
    virtual void windowKeyPressed(std::uint32_t key, std::uint32_t state) = 0;
    /// Rings the desktop's bell.
    virtual void beep() = 0;

    /// A key went down, once however long it is held: not a modifier, whose state comes with the
    /// others. Control, Option, Shift and Command are Ctrl, Alt, Shift and Super.
    Signal<KeyPress> keyDown;
    /// The same for a key that no shortcut can name.
    Signal<> unnamedKeyDown;
    /// No key has been pressed for half a minute, and the keyboard has been given back: nobody else, a
    /// screen locker least of all, could have it while the recording was forgotten.
    Signal<> gaveUp;
};

} // namespace korvane
