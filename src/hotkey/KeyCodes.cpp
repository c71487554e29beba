#include "hotkey/KeyCodes.h"

#include <algorithm>
#include <array>

namespace korvane {

namespace {

    struct Modifier {
        std::uint64_t flag;
        ModifierMask mask;
        std::string_view symbol;
    };

    /// In the order in which the symbols are shown.
    constexpr std::array shownModifiers {
        Modifier { eventflags::control, modifiers::control, "⌃" },
        Modifier { eventflags::option, modifiers::option, "⌥" },
        Modifier { eventflags::shift, modifiers::shift, "⇧" },
        Modifier { eventflags::command, modifiers::command, "⌘" },
    };

    struct KeyLabel {
        KeyCode keyCode;
        std::string_view label;
    };

    constexpr std::array keyLabels {
        KeyLabel { 36, "↩" },
        KeyLabel { 76, "↩" },
        KeyLabel { 48, "⇥" },
        KeyLabel { 49, "Space" },
        KeyLabel { 51, "⌫" },
        KeyLabel { 53, "⎋" },
        KeyLabel { 117, "⌦" },
        KeyLabel { 123, "←" },
        KeyLabel { 124, "→" },
        KeyLabel { 125, "↓" },
        KeyLabel { 126, "↑" },
        KeyLabel { 115, "Home" },
        KeyLabel { 119, "End" },
        KeyLabel { 116, "PgUp" },
        KeyLabel { 121, "PgDn" },
        KeyLabel { 122, "F1" },
        KeyLabel { 120, "F2" },
        KeyLabel { 99, "F3" },
        KeyLabel { 118, "F4" },
        KeyLabel { 96, "F5" },
        KeyLabel { 97, "F6" },
        KeyLabel { 98, "F7" },
        KeyLabel { 100, "F8" },
        KeyLabel { 101, "F9" },
        KeyLabel { 109, "F10" },
        KeyLabel { 103, "F11" },
        KeyLabel { 111, "F12" },
    };

} // namespace

ModifierMask carbonModifiers(std::uint64_t flags)
{
    ModifierMask mask = 0;
    for (const auto& modifier : shownModifiers)
        if ((flags & modifier.flag) != 0)
            mask |= modifier.mask;
    return mask;
}

std::string modifierSymbols(ModifierMask mask)
{
    std::string symbols;
    for (const auto& modifier : shownModifiers)
        if ((mask & modifier.mask) != 0)
            symbols += modifier.symbol;
    return symbols;
}

std::optional<std::string_view> keyLabel(KeyCode keyCode)
{
    const auto* const found = std::ranges::find(keyLabels, keyCode, &KeyLabel::keyCode);
    return found == keyLabels.end() ? std::nullopt : std::optional(found->label);
}

} // namespace korvane
