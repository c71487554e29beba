#pragma once

#include <string_view>

namespace korvane {

/// Every text of the Shortcuts page but the recorder's own.
namespace shortcutstexts {
    inline constexpr std::string_view globalShortcut = "Global Shortcut";
    inline constexpr std::string_view openKorvane = "Open Korvane:";
    inline constexpr std::string_view reset = "Reset";
    inline constexpr std::string_view directSelect = "Enable ⌘1–⌘0 direct select";
    inline constexpr std::string_view tabCycling = "Enable Tab / ⇧Tab to cycle filter tabs";
    inline constexpr std::string_view navigation
        = "Panel navigation: ↑↓ arrows or ⌘1–⌘0 for instant paste. Return pastes the selected "
          "item. "
          "Space — Selected item Quick Look. ⌘P — pin/unpin. ⌘Delete — delete. Tab / ⇧Tab — cycle "
          "filter tabs.";
} // namespace shortcutstexts

} // namespace korvane
