#pragma once

#include "hotkey/HotkeyGrabber.h"

#include <optional>
#include <set>
#include <utility>

namespace korvane::test {

/// Grants every chord but those that the test says are taken.
class FakeHotkeyGrabber : public HotkeyGrabber {
public:
    using Chord = std::pair<KeyCode, ModifierMask>;

    bool grab(KeyCode keyCode, ModifierMask modifiers) override
    {
        ++grabs;
        held.reset();
        const Chord chord { keyCode, modifiers };
        if (taken.contains(chord))
            return false;
        held = chord;
        return true;
    }
    void release() override
    {
        ++releases;
        held.reset();
    }

    /// The chord that we hold.
    std::optional<Chord> held;
    /// The chords that other programs hold.
    std::set<Chord> taken;
    int grabs = 0;
    int releases = 0;
};

} // namespace korvane::test
