#pragma once

#include "hotkey/KeyCodes.h"
#include "platform/wayland/XkbHandles.h"

#include <functional>
#include <optional>
#include <vector>

namespace korvane {

/// The keys of a chord, by the numbers of a keymap: the modifiers are pressed in their order before the key,
/// and let go after it.
struct ChordKeys {
    std::vector<xkb_keycode_t> modifiers;
    xkb_keycode_t key = 0;
};

/// The keys that type a chord on a keymap. None where it has no such key.
/// @param modifiers  Ctrl, Alt, Shift and Super stand for Control, Option, Shift and Command
std::optional<ChordKeys> chordAt(xkb_keymap* keymap, KeyCode position, ModifierMask modifiers);
/// The same for the key that types a symbol without any modifier in this layout, or else in the first of
/// the others that has it.
std::optional<ChordKeys> chordTyping(
    xkb_keymap* keymap, xkb_layout_index_t layout, xkb_keysym_t symbol, ModifierMask modifiers);
/// The keys by which any of these modifiers may be held: the left and the right ones.
std::vector<xkb_keycode_t> keysHolding(xkb_keymap* keymap, xkb_mod_mask_t held);

/// Presses and lets go the keys of a chord, one after the other.
void forEachStroke(
    const ChordKeys& keys, const std::function<void(xkb_keycode_t key, bool isDown)>& stroke);

} // namespace korvane
