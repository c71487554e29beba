#pragma once

#include "hotkey/KeyRecorder.h"
#include "platform/wayland/SeatKeyboard.h"

namespace korvane {

/// No compositor gives a program the whole keyboard: what is left are the presses that our own window gets.
class WaylandKeyRecorder : public KeyRecorder {
public:
    /// @param user  what the keys mean
    explicit WaylandKeyRecorder(const SeatKeyboard& user);

    bool start(std::uint64_t window) override;
    void stop() override { m_isRecording = false; }
    /// @param key    a key code of the keymap
    /// @param state  the modifiers in force, as a mask of the keymap
    void windowKeyPressed(std::uint32_t key, std::uint32_t state) override;
    /// Nothing: a compositor rings no bell for a program.
    void beep() override { }

private:
    const SeatKeyboard& m_user;
    bool m_isRecording = false;
};

} // namespace korvane
