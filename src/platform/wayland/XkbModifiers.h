#pragma once

#include "hotkey/KeyCodes.h"
#include "platform/wayland/XkbHandles.h"

namespace korvane {

/// The bit that a modifier has on a keymap, by its name there ("Control"); 0 where it has none.
xkb_mod_mask_t maskOf(xkb_keymap* keymap, const char* modifier);
/// The bits of these modifiers: Ctrl, Alt, Shift and Super stand for Control, Option, Shift and Command.
xkb_mod_mask_t maskOf(xkb_keymap* keymap, ModifierMask modifiers);
/// The other way round. What has no name among ours is dropped.
ModifierMask modifiersIn(xkb_keymap* keymap, xkb_mod_mask_t state);

} // namespace korvane
