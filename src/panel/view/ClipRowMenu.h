#pragma once

#include "model/ClipItem.h"

#include <functional>
#include <optional>

class QWidget;

namespace korvane {

class PanelController;
class PanelMenu;

/// The context menu of a row. It deletes itself when it closes.
/// @param beginRename  starts the rename in place
/// @param rowMidY  where the row is, for the preview to open beside it
PanelMenu* makeClipRowMenu(const ClipItem& clip, PanelController& controller,
    const std::function<void()>& beginRename, double rowMidY, QWidget* parent);

} // namespace korvane
