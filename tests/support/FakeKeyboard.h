#pragma once

#include "hotkey/Keyboard.h"

#include <utility>
#include <vector>

namespace korvane::test {

/// Records the chords that were typed.
class FakeKeyboard : public Keyboard {
public:
    void typeChord(KeyCode keyCode, ModifierMask modifiers) override
    {
        typed.emplace_back(keyCode, modifiers);
    }
    bool listen() override
    {
        isListening = canListen;
        return canListen;
    }

    std::vector<std::pair<KeyCode, ModifierMask>> typed;
    bool canListen = true;
    bool isListening = false;
};

} // namespace korvane::test
