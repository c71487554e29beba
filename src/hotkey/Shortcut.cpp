#include "hotkey/Shortcut.h"

#include "model/Preferences.h"

#include <limits>
#include <utility>

namespace korvane {

namespace {

    /// A stored number, its default where there is none, or nothing where it is out of range.
    std::optional<std::uint32_t> storedNumber(
        const Preferences& preferences, std::string_view key, std::uint32_t whenAbsent)
    {
        const auto stored = preferences.value<std::int64_t>(key).value_or(whenAbsent);
        if (stored < 0 || stored > std::numeric_limits<std::uint32_t>::max())
            return std::nullopt;
        return static_cast<std::uint32_t>(stored);
    }

} // namespace

std::optional<Shortcut> storedShortcut(const Preferences& preferences)
{
    Shortcut shortcut;
    const auto keyCode = storedNumber(preferences, keys::hotkeyKeyCode, shortcut.keyCode);
    const auto mask = storedNumber(preferences, keys::hotkeyModifiers, shortcut.modifiers);
    if (!keyCode || !mask)
        return std::nullopt;
    shortcut.keyCode = *keyCode;
    shortcut.modifiers = *mask;
    auto label = preferences.string(keys::hotkeyKeyLabel);
    if (label && !label->empty())
        shortcut.label = std::move(*label);
    return shortcut;
}

std::string displayText(const Shortcut& shortcut)
{
    return modifierSymbols(shortcut.modifiers) + shortcut.label;
}

} // namespace korvane
