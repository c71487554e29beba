#include "hotkey/Shortcut.h"

namespace korvane {

std::string displayText(const Shortcut& shortcut)
{
    return modifierSymbols(shortcut.modifiers) + shortcut.label;
}

} // namespace korvane
