#include "settings/HelpTexts.h"

namespace korvane::helptexts {

std::array<std::string, 5> tipTexts()
{
    return {
        "• The \"Open Korvane\" shortcut is customizable — open the Shortcuts tab, click the "
        "shortcut "
        "field, and press any modifier+key combination (⌃, ⌥, ⇧, ⌘). Press Esc to cancel, or use "
        "Reset to restore the default "
            + displayText(Shortcut()) + ".",
        "• Tab / ⇧Tab cycles through the filter tabs (All → Pinned → Text → URL → …) with the same "
        "smooth pill animation used by mouse clicks. Rapid presses advance predictably — even "
        "mid-animation. Pressing past the last tab wraps back to the first. Disable in the "
        "Shortcuts "
        "tab if you need Tab for something else.",
        "• Pinned clips survive when the clip limit is reached.",
        "• File clips show their name in the list. Clicking reveals them in Finder.",
        "• Use the Privacy tab to add app bundle IDs whose copies should be ignored.",
    };
}

} // namespace korvane::helptexts
