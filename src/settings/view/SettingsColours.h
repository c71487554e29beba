#pragma once

#include "look/view/Colours.h"

namespace korvane {

/// What the settings window has beside the colours of the panel. Where a colour is translucent, it is
/// laid over `card`, unless it says otherwise.
struct SettingsColours {
    QColor window; ///< ground of a page
    QColor bar;    ///< ground of the row of pages
    QColor card;   ///< ground of a group of rows
    QColor line;   ///< around a card, between its rows, and under the bar
    QColor control;
    QColor controlEdge;
    QColor controlHover;
    QColor controlPressed;
    QColor chief; ///< ground of the button that Return presses
    QColor chiefHover;
    QColor track; ///< of a switch that is off
    QColor trackHover;
    QColor trackOn;
    QColor trackOnHover;
    QColor thumb; ///< the part of a switch that moves
    QColor thumbShadow;
    QColor segments;  ///< ground of a picker
    QColor segmentOn; ///< ground of what is chosen in it
    QColor chosenTab; ///< over `bar`
    QColor chosenTabText;
    QColor focus;    ///< the ring around what has the keyboard
    QColor disabled; ///< a text or a symbol that does nothing now
};

const SettingsColours& settingsColoursOf(ColourScheme scheme);
inline const SettingsColours& settingsColoursOf(const QPalette& palette)
{
    return settingsColoursOf(schemeOf(palette));
}

} // namespace korvane
