#pragma once

#include <QColor>
#include <QPalette>

namespace korvane {

enum class ColourScheme { light, dark };

/// The panel's colours in one scheme. Where a colour is translucent, it is laid over `panel`.
struct Colours {
    /// The panel's ground. Opaque: on one that is not, the toolkit blends letters too heavily.
    QColor panel;
    QColor edge; ///< the one-pixel edge around the panel
    QColor line; ///< between the parts of the panel
    QColor text;
    QColor secondary; ///< text and symbols that stand back
    QColor chip;      ///< a tab that is not chosen
    QColor field;     ///< ground of the search field
    QColor hover;     ///< ground of what the pointer is on
    QColor pressed;   ///< ground of what the button is held down on
    QColor selection; ///< ground of the selected row
    QColor selectionEdge;
    QColor onSelection; ///< text and symbols that stand back, on the selected row
    QColor badge;       ///< ground of the shortcut badge
    QColor icon;        ///< ground of a row's symbol
    QColor selectedIcon;
    QColor selectedIconGround;
    QColor accent;     ///< the program's one accent, the same in both schemes
    QColor onAccent;   ///< text and symbols on the accent
    QColor orange;     ///< what asks for attention: the pin, private mode
    QColor orangeText; ///< the same for a text on the panel
    QColor redText;    ///< a text on the panel that warns
};

const Colours& coloursOf(ColourScheme scheme);
/// The scheme that a palette belongs to: dark when its ground is darker than its text.
ColourScheme schemeOf(const QPalette& palette);
inline const Colours& coloursOf(const QPalette& palette)
{
    return coloursOf(schemeOf(palette));
}

} // namespace korvane
