#pragma once

#include "hotkey/Shortcut.h"

#include <array>
#include <string>
#include <string_view>

namespace korvane {

/// The texts of the Help page.
namespace helptexts {
    inline constexpr std::string_view shortcuts = "Keyboard shortcuts";
    inline constexpr std::string_view tips = "Tips";

    /// What a key does. Only the first of them follows the settings.
    struct Line {
        std::string_view action;
        std::string_view keys;
    };

    /// Its keys are the present shortcut's.
    inline constexpr std::string_view openPanel = "Open Korvane panel";
    inline constexpr std::array lines {
        Line { "Navigate clips", "↑ ↓" },
        Line { "Cycle filter tabs (wraps around)", "Tab / ⇧Tab" },
        Line { "Paste selected clip", "Return" },
        Line { "Paste clip at that position", "⌘1 – ⌘0" },
        Line { "Quick Look preview", "Space" },
        Line { "Pin / unpin selected clip", "⌘P" },
        Line { "Delete selected clip", "⌘⌫" },
        Line { "Close panel", "Esc" },
    };

    /// One paragraph each. The default shortcut stands in the first, whatever the present one is.
    std::array<std::string, 5> tipTexts();
} // namespace helptexts

} // namespace korvane
