#include "panel/PanelKeys.h"

namespace korvane {

using namespace panelcommands;

namespace {

    /// The keys that are known by what they type, whichever key that is in the user's layout.
    PanelCommand commandOfCharacter(const KeyPress& press, const PanelKeyFacts& facts)
    {
        if (!press.has(modifiers::command))
            return Pass {};
        if (press.characters == "p" || press.characters == "P")
            return TogglePin {};
        const bool isDigit = press.characters.size() == 1 && press.characters[0] >= '0'
            && press.characters[0] <= '9';
        if (!isDigit || !facts.isDirectPasteEnabled)
            return Pass {};
        // 1 to 9 are the first nine clips, and 0 is the tenth.
        const auto digit = static_cast<std::size_t>(press.characters[0] - '0');
        return ActivateAt { digit == 0 ? 9 : digit - 1 };
    }

} // namespace

PanelCommand panelCommand(const KeyPress& press, const PanelKeyFacts& facts)
{
    switch (press.keyCode) {
    case keycodes::returnKey:
        return ActivateSelected {};
    case keycodes::tab:
        if (!facts.isTabCyclingEnabled)
            return Pass {};
        return CycleTab { press.has(modifiers::shift) ? -1 : 1 };
    case keycodes::space:
        // A blank cannot be typed into the search, deliberately: the key is the preview's.
        if (facts.isPreviewVisible)
            return HidePreview {};
        return ShowPreview {};
    case keycodes::backspace:
        if (press.has(modifiers::command))
            return DeleteSelected {};
        return Pass {};
    case keycodes::escape:
        return panelcommands::Escape {};
    case keycodes::downArrow:
        return MoveSelection { 1 };
    case keycodes::upArrow:
        return MoveSelection { -1 };
    default:
        return commandOfCharacter(press, facts);
    }
}

} // namespace korvane
