#pragma once

#include "hotkey/KeyCodes.h"

#include <optional>
#include <string>

namespace korvane {

class Preferences;

/// A global shortcut as it is stored. Without anything stored it is Control-Space.
struct Shortcut {
    KeyCode keyCode = keycodes::space;
    ModifierMask modifiers = modifiers::control;
    /// The key alone, as it is shown.
    std::string label = "Space";

    friend bool operator==(const Shortcut&, const Shortcut&) = default;
};

/// The stored shortcut. What is absent or of the wrong type takes its default, each for itself; an
/// empty label reads as "Space". None: a stored number lies outside 0 … 4294967295, which the program
/// must not run with.
std::optional<Shortcut> storedShortcut(const Preferences& preferences);

/// As the user sees it: the modifiers' symbols, then the label ("⌃Space").
std::string displayText(const Shortcut& shortcut);

} // namespace korvane
