#include "platform/wayland/KeyTyping.h"

#include "platform/wayland/XkbModifiers.h"
#include "platform/x11/KeyPositions.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <utility>

namespace korvane {

namespace {

    struct ModifierKeys {
        ModifierMask modifier;
        std::array<const char*, 2>
            keys; ///< by the names of their positions: the left and the right one
    };

    // The second of Alt is, on many layouts, the one for the third character of a key.
    constexpr auto modifierKeys = std::to_array<ModifierKeys>({
        { modifiers::control, { "LCTL", "RCTL" } },
        { modifiers::option, { "LALT", "RALT" } },
        { modifiers::shift, { "LFSH", "RTSH" } },
        { modifiers::command, { "LWIN", "RWIN" } },
    });

    bool hasSymbol(
        xkb_keymap* keymap, xkb_keycode_t key, xkb_layout_index_t layout, xkb_keysym_t symbol)
    {
        const xkb_keysym_t* symbols = nullptr;
        const int count = xkb_keymap_key_get_syms_by_level(keymap, key, layout, 0, &symbols);
        const auto found = std::span(symbols, static_cast<std::size_t>(std::max(count, 0)));
        return std::ranges::find(found, symbol) != found.end();
    }

    std::optional<xkb_keycode_t> keyTyping(
        xkb_keymap* keymap, xkb_layout_index_t layout, xkb_keysym_t symbol)
    {
        const auto last = xkb_keymap_max_keycode(keymap);
        for (auto key = xkb_keymap_min_keycode(keymap); key <= last; ++key)
            if (hasSymbol(keymap, key, layout, symbol))
                return key;
        return std::nullopt;
    }

    std::optional<ChordKeys> chordOf(xkb_keymap* keymap, xkb_keycode_t key, ModifierMask mask)
    {
        ChordKeys chord { .modifiers = {}, .key = key };
        for (const auto& known : modifierKeys) {
            if ((mask & known.modifier) == 0)
                continue;
            const auto modifierKey = xkb_keymap_key_by_name(keymap, known.keys.front());
            if (modifierKey == XKB_KEYCODE_INVALID)
                return std::nullopt;
            chord.modifiers.push_back(modifierKey);
        }
        return chord;
    }

} // namespace

std::optional<ChordKeys> chordAt(xkb_keymap* keymap, KeyCode position, ModifierMask modifiers)
{
    const auto name = xkbNameOf(position);
    if (!name)
        return std::nullopt;
    const auto key = xkb_keymap_key_by_name(keymap, std::string(*name).c_str());
    if (key == XKB_KEYCODE_INVALID)
        return std::nullopt;
    return chordOf(keymap, key, modifiers);
}

std::optional<ChordKeys> chordTyping(
    xkb_keymap* keymap, xkb_layout_index_t layout, xkb_keysym_t symbol, ModifierMask modifiers)
{
    auto key = keyTyping(keymap, layout, symbol);
    for (xkb_layout_index_t other = 0; !key && other < xkb_keymap_num_layouts(keymap); ++other)
        key = keyTyping(keymap, other, symbol);
    if (!key)
        return std::nullopt;
    return chordOf(keymap, *key, modifiers);
}

std::vector<xkb_keycode_t> keysHolding(xkb_keymap* keymap, xkb_mod_mask_t held)
{
    std::vector<xkb_keycode_t> keys;
    for (const auto& known : modifierKeys) {
        if ((held & maskOf(keymap, known.modifier)) == 0)
            continue;
        for (const auto* const name : known.keys)
            if (const auto key = xkb_keymap_key_by_name(keymap, name); key != XKB_KEYCODE_INVALID)
                keys.push_back(key);
    }
    return keys;
}

void forEachStroke(
    const ChordKeys& keys, const std::function<void(xkb_keycode_t key, bool isDown)>& stroke)
{
    for (const auto modifier : keys.modifiers)
        stroke(modifier, true);
    stroke(keys.key, true);
    stroke(keys.key, false);
    for (auto modifier = keys.modifiers.rbegin(); modifier != keys.modifiers.rend(); ++modifier)
        stroke(*modifier, false);
}

} // namespace korvane
