#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

namespace korvane {

/// The panel's measures, in points.
namespace metrics {
    inline constexpr int panelWidth = 360;
    inline constexpr int panelRadius = 12;

    inline constexpr int headerHeight = 42;
    inline constexpr int searchHeight = 38;
    inline constexpr int tabsHeight = 41;
    inline constexpr int footerHeight = 43;
    /// Where the list begins, downward from the panel's top edge.
    inline constexpr int listTop = headerHeight + searchHeight + tabsHeight;

    inline constexpr int rowHeight = 48;
    inline constexpr int rowGap = 2;
    inline constexpr int rowPitch = rowHeight + rowGap;
    inline constexpr int listPaddingX = 6;
    inline constexpr int listPaddingY = 4;
    inline constexpr int rowRadius = 6;

    /// Between the preview's edge and its text.
    inline constexpr int previewInset = 12;
    /// A line of the preview is at least so high; one with a tall script is higher.
    inline constexpr int previewLineHeight = 18;

    // The height that the shell adds to the rows of the list: what stands above and below it, and
    // the gap that the last row does not have.
    static_assert(listTop + footerHeight + 2 * listPaddingY - rowGap == 170);
} // namespace metrics

enum class ColourScheme { light, dark };

/// The panel's colours in one scheme. Where a colour is translucent, it is laid over `panel`.
struct PanelColours {
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

const PanelColours& panelColours(ColourScheme scheme);
/// The scheme that a palette belongs to: dark when its ground is darker than its text.
ColourScheme schemeOf(const QPalette& palette);
inline const PanelColours& panelColours(const QPalette& palette)
{
    return panelColours(schemeOf(palette));
}

/// The desktop's own font in one of the panel's sizes.
/// @param size  in points of the panel, which are logical pixels; fractions count
QFont panelFont(double size, QFont::Weight weight = QFont::Normal);
/// The desktop's monospaced font, in the same measure.
QFont panelCodeFont(double size);

} // namespace korvane
