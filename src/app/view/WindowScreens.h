#pragma once

#include "app/Windows.h"
#include "app/view/ScreenGeometry.h"

namespace korvane {

/// The screen that our windows are placed on, and where it lies among the toolkit's coordinates.
class WindowScreens : public Screens {
public:
    /// The place on the desktop of the screen that was last looked at, for windows that are put on it.
    virtual ScreenGeometry geometry() = 0;
};

} // namespace korvane
