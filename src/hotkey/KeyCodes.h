#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

/// A virtual key code: the number of a key's position on the keyboard, whatever the layout (the
/// numbering of the stored shortcut).
using KeyCode = std::uint32_t;

namespace keycodes {
    inline constexpr KeyCode v = 9;
    inline constexpr KeyCode returnKey = 36;
    inline constexpr KeyCode tab = 48;
    inline constexpr KeyCode space = 49;
    inline constexpr KeyCode backspace = 51; // "Delete" on the keyboard that the numbering is of
    inline constexpr KeyCode escape = 53;
    inline constexpr KeyCode downArrow = 125;
    inline constexpr KeyCode upArrow = 126;
} // namespace keycodes

/// A modifier mask as it is stored: bits of `modifiers`.
using ModifierMask = std::uint32_t;

namespace modifiers {
    inline constexpr ModifierMask command = 256;
    inline constexpr ModifierMask shift = 512;
    inline constexpr ModifierMask option = 2048;
    inline constexpr ModifierMask control = 4096;
    inline constexpr ModifierMask all = command | shift | option | control;
} // namespace modifiers

/// The modifier flags of a platform key event, as far as a shortcut knows them.
namespace eventflags {
    inline constexpr std::uint64_t shift = 1U << 17U;
    inline constexpr std::uint64_t control = 1U << 18U;
    inline constexpr std::uint64_t option = 1U << 19U;
    inline constexpr std::uint64_t command = 1U << 20U;
} // namespace eventflags

/// The mask of a platform key event's modifier flags; Caps Lock and all other flags are dropped.
ModifierMask carbonModifiers(std::uint64_t flags);
/// The symbols of the modifiers in the mask, always in the order "⌃⌥⇧⌘"; empty for none.
std::string modifierSymbols(ModifierMask mask);
/// The fixed label of a key that types no character of its own; none for any other key.
std::optional<std::string_view> keyLabel(KeyCode keyCode);

/// A key press as the panel and the global listener are told of it.
struct KeyPress {
    KeyCode keyCode = 0;
    ModifierMask modifiers = 0;
    /// What the key types without modifiers other than Shift, in UTF-8; empty where unknown.
    std::string characters;

    bool has(ModifierMask mask) const { return (modifiers & mask) == mask; }
};

} // namespace korvane
