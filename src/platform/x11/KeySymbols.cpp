#include "platform/x11/KeySymbols.h"

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace korvane {

namespace {

    struct DeadKey {
        std::uint32_t symbol;
        std::string_view accent;
    };

    // As it is printed on the keys of the layouts that have them, standing by itself.
    constexpr auto deadKeys = std::to_array<DeadKey>({
        { XKB_KEY_dead_grave, "`" },
        { XKB_KEY_dead_acute, "´" },
        { XKB_KEY_dead_circumflex, "^" },
        { XKB_KEY_dead_tilde, "~" },
        { XKB_KEY_dead_macron, "¯" },
        { XKB_KEY_dead_breve, "˘" },
        { XKB_KEY_dead_abovedot, "˙" },
        { XKB_KEY_dead_diaeresis, "¨" },
        { XKB_KEY_dead_abovering, "˚" },
        { XKB_KEY_dead_doubleacute, "˝" },
        { XKB_KEY_dead_caron, "ˇ" },
        { XKB_KEY_dead_cedilla, "¸" },
        { XKB_KEY_dead_ogonek, "˛" },
        { XKB_KEY_dead_iota, "ͺ" },
        { XKB_KEY_dead_doublegrave, "˵" },
        { XKB_KEY_dead_currency, "¤" },
        { XKB_KEY_dead_greek, "µ" },
        { XKB_KEY_dead_stroke, "/" },
    });

} // namespace

std::string textOf(std::uint32_t symbol)
{
    const auto* const dead = std::ranges::find(deadKeys, symbol, &DeadKey::symbol);
    if (dead != deadKeys.end())
        return std::string(dead->accent);
    std::array<char, 8> utf8 {}; // the longest character and the end, as the library asks for
    if (xkb_keysym_to_utf8(symbol, utf8.data(), utf8.size()) <= 0)
        return {};
    const auto first = static_cast<unsigned char>(utf8.front());
    const bool isControl = first < 0x20 || first == 0x7F;
    return isControl ? std::string() : std::string(utf8.data());
}

bool isModifierSymbol(std::uint32_t symbol)
{
    return (symbol >= XKB_KEY_Shift_L && symbol <= XKB_KEY_Hyper_R)
        || (symbol >= XKB_KEY_ISO_Lock && symbol <= XKB_KEY_ISO_Level5_Lock)
        || symbol == XKB_KEY_Mode_switch || symbol == XKB_KEY_Num_Lock
        || symbol == XKB_KEY_Scroll_Lock;
}

} // namespace korvane
