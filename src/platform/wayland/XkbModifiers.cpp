#include "platform/wayland/XkbModifiers.h"

#include <array>

namespace korvane {

namespace {

    struct NamedModifier {
        ModifierMask modifier;
        const char* xkbName;
    };

    constexpr auto namedModifiers = std::to_array<NamedModifier>({
        { modifiers::control, XKB_MOD_NAME_CTRL },
        { modifiers::option, XKB_MOD_NAME_ALT },
        { modifiers::shift, XKB_MOD_NAME_SHIFT },
        { modifiers::command, XKB_MOD_NAME_LOGO },
    });

} // namespace

xkb_mod_mask_t maskOf(xkb_keymap* keymap, const char* modifier)
{
    const auto index = xkb_keymap_mod_get_index(keymap, modifier);
    return index == XKB_MOD_INVALID ? 0 : xkb_mod_mask_t { 1 } << index;
}

xkb_mod_mask_t maskOf(xkb_keymap* keymap, ModifierMask modifiers)
{
    xkb_mod_mask_t mask = 0;
    for (const auto& named : namedModifiers)
        if ((modifiers & named.modifier) != 0)
            mask |= maskOf(keymap, named.xkbName);
    return mask;
}

ModifierMask modifiersIn(xkb_keymap* keymap, xkb_mod_mask_t state)
{
    ModifierMask mask = 0;
    for (const auto& named : namedModifiers)
        if ((state & maskOf(keymap, named.xkbName)) != 0)
            mask |= named.modifier;
    return mask;
}

} // namespace korvane
