#pragma once

#include "hotkey/KeyCodes.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace korvane {

/// One key: the virtual code that stands for its position, and the name that the X Keyboard
/// Extension gives to the same position ("AC01" is the first letter of the third row). Both say
/// nothing of what is printed on the key, so the pairs hold for every layout.
struct KeyPosition {
    KeyCode keyCode;
    std::string_view xkbName;
};

/// All keys that a shortcut can name, by rising virtual code.
std::span<const KeyPosition> keyPositions();

/// The extension's name for the position; none for a number that no key has.
std::optional<std::string_view> xkbNameOf(KeyCode keyCode);

} // namespace korvane
