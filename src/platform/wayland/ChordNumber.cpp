#include "platform/wayland/ChordNumber.h"

#include "platform/wayland/SeatKeyboard.h"
#include "platform/wayland/XkbModifiers.h"
#include "platform/x11/KeyPositions.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <algorithm>
#include <array>
#include <string>

namespace korvane {

namespace {

    struct Modifier {
        ModifierMask modifier;
        std::int32_t number;
    };
    constexpr std::int32_t shiftNumber = 0x02000000;
    constexpr auto knownModifiers = std::to_array<Modifier>({
        { modifiers::shift, shiftNumber },
        { modifiers::control, 0x04000000 },
        { modifiers::option, 0x08000000 },
        { modifiers::command, 0x10000000 },
    });

    struct NamedKey {
        xkb_keysym_t symbol;
        std::int32_t number;
    };
    // Tab with Shift is told by the number of Tab as well. What stands on the keys after F12 is what
    // layouts give to them.
    constexpr auto namedKeys = std::to_array<NamedKey>({
        { XKB_KEY_Escape, 0x01000000 },
        { XKB_KEY_Tab, 0x01000001 },
        { XKB_KEY_ISO_Left_Tab, 0x01000001 },
        { XKB_KEY_BackSpace, 0x01000003 },
        { XKB_KEY_Return, 0x01000004 },
        { XKB_KEY_Insert, 0x01000006 },
        { XKB_KEY_Delete, 0x01000007 },
        { XKB_KEY_Home, 0x01000010 },
        { XKB_KEY_End, 0x01000011 },
        { XKB_KEY_Left, 0x01000012 },
        { XKB_KEY_Up, 0x01000013 },
        { XKB_KEY_Right, 0x01000014 },
        { XKB_KEY_Down, 0x01000015 },
        { XKB_KEY_Prior, 0x01000016 },
        { XKB_KEY_Next, 0x01000017 },
        { XKB_KEY_Num_Lock, 0x01000025 },
        { XKB_KEY_XF86Launch5, 0x010000a9 },
        { XKB_KEY_XF86Launch6, 0x010000aa },
        { XKB_KEY_XF86Launch7, 0x010000ab },
    });
    constexpr std::int32_t firstFunctionKey = 0x01000030;

    constexpr bool isLatin(xkb_keysym_t symbol)
    {
        return symbol != XKB_KEY_NoSymbol && symbol <= 0xFF;
    }

    std::optional<std::int32_t> numberOf(xkb_keysym_t symbol)
    {
        const auto* const named = std::ranges::find(namedKeys, symbol, &NamedKey::symbol);
        if (named != namedKeys.end())
            return named->number;
        if (symbol >= XKB_KEY_F1 && symbol <= XKB_KEY_F35)
            return firstFunctionKey + static_cast<std::int32_t>(symbol - XKB_KEY_F1);
        const bool isOnNumberPad = symbol >= XKB_KEY_KP_Space && symbol <= XKB_KEY_KP_Equal;
        const auto character = xkb_keysym_to_utf32(xkb_keysym_to_upper(symbol));
        if (isOnNumberPad || character < 0x20 || character == 0x7F)
            return std::nullopt;
        return static_cast<std::int32_t>(character);
    }

    /// What the key means while these modifiers are held.
    std::optional<std::int32_t> keyNumber(
        xkb_keymap* keymap, xkb_layout_index_t layout, xkb_keycode_t key, ModifierMask modifiers)
    {
        const XkbState state(xkb_state_new(keymap));
        if (!state)
            return std::nullopt;
        const auto symbolIn = [&](xkb_layout_index_t inForce) {
            xkb_state_update_mask(state.get(), maskOf(keymap, modifiers), 0, 0, 0, 0, inForce);
            return xkb_state_key_get_one_sym(state.get(), key);
        };
        auto symbol = symbolIn(layout);
        for (xkb_layout_index_t other = 0;
             !isLatin(symbol) && other < xkb_keymap_num_layouts(keymap); ++other)
            if (const auto latin = symbolIn(other); isLatin(latin))
                symbol = latin;
        return numberOf(symbol);
    }

} // namespace

std::optional<std::int32_t> chordNumber(
    xkb_keymap* keymap, xkb_layout_index_t layout, KeyCode position, ModifierMask modifiers)
{
    const auto name = xkbNameOf(position);
    if (keymap == nullptr || !name)
        return std::nullopt;
    const auto key = xkb_keymap_key_by_name(keymap, std::string(*name).c_str());
    if (key == XKB_KEYCODE_INVALID)
        return std::nullopt;
    const auto meant = keyNumber(keymap, layout, key, modifiers);
    if (!meant)
        return std::nullopt;
    std::int32_t number = *meant;
    for (const auto& known : knownModifiers)
        if ((modifiers & known.modifier) != 0)
            number |= known.number;
    const auto withoutShift = keyNumber(keymap, layout, key, modifiers & ~modifiers::shift);
    if (meant != withoutShift)
        number &= ~shiftNumber;
    return number;
}

ChordNumbers::ChordNumbers(const SeatKeyboard& user)
    : m_user(user)
    , m_context(xkb_context_new(XKB_CONTEXT_NO_FLAGS))
{
    xkb_rule_names names {};
    names.layout = "us";
    m_usual.reset(xkb_keymap_new_from_names(m_context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
}

std::optional<std::int32_t> ChordNumbers::numberOf(KeyCode position, ModifierMask modifiers) const
{
    if (auto* const keymap = m_user.keymap())
        return chordNumber(keymap, m_user.layout(), position, modifiers);
    return chordNumber(m_usual.get(), 0, position, modifiers);
}

} // namespace korvane
