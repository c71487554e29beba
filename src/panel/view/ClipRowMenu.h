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
PanelMenu* makeClipRowMenu(const ClipItem& clip, PanelController& controller,
    const std::function<void()>& beginRename, QWidget* parent);

} // namespace korvane
