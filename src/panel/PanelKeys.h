#pragma once

#include "hotkey/KeyCodes.h"

#include <cstddef>
#include <variant>

namespace korvane {

/// What a key press in the panel asks for.
namespace panelcommands {
    /// The key is none of the panel's: it goes on to the search field.
    struct Pass { };
    struct ActivateSelected { };
    /// Activates the clip at this place of the displayed list; the key passes when there is none.
    struct ActivateAt {
        std::size_t index;
    };
    /// Walks the ring of tabs, +1 or −1.
    struct CycleTab {
        int steps;
    };
    struct ShowPreview { };
    struct HidePreview { };
    struct DeleteSelected { };
    /// Clears the search, or closes the panel where there is none.
    struct Escape { };
    /// Down is +1, up is −1.
    struct MoveSelection {
        int rows;
    };
    struct TogglePin { };
} // namespace panelcommands

using PanelCommand = std::variant<panelcommands::Pass, panelcommands::ActivateSelected,
    panelcommands::ActivateAt, panelcommands::CycleTab, panelcommands::ShowPreview,
    panelcommands::HidePreview, panelcommands::DeleteSelected, panelcommands::Escape,
    panelcommands::MoveSelection, panelcommands::TogglePin>;

/// What the meaning of a key depends on.
struct PanelKeyFacts {
    bool isPreviewVisible = false;
    bool isTabCyclingEnabled = true;
    bool isDirectPasteEnabled = false;
};

/// The table of keys. The key's place on the keyboard decides first, then what it types.
PanelCommand panelCommand(const KeyPress& press, const PanelKeyFacts& facts);

} // namespace korvane
