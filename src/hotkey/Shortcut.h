#pragma once

#include "hotkey/KeyCodes.h"

#include <string>

namespace korvane {

/// A global shortcut as it is stored. Without anything stored it is Control-Space.
struct Shortcut {
    KeyCode keyCode = keycodes::space;
    ModifierMask modifiers = modifiers::control;
    /// The key alone, as it is shown.
    std::string label = "Space";

    friend bool operator==(const Shortcut&, const Shortcut&) = default;
};

/// As the user sees it: the modifiers' symbols, then the label ("⌃Space").
std::string displayText(const Shortcut& shortcut);

} // namespace korvane
