#pragma once

#include "settings/ParentWindow.h"

#include <memory>

namespace korvane {

/// The window that the user is in (see `keyWindow`), for a dialog of another program. Null: it is another
/// program's already.
std::unique_ptr<ParentWindow> keyParent();

} // namespace korvane
