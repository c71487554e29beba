#pragma once

#include "platform/x11/WorkArea.h"

#include <vector>

namespace korvane {

class X11Connection;

/// What the bars on the screen keep free. They are looked for among all windows, because not every
/// window manager lists them, and three levels deep, because some frame even a bar.
std::vector<Strut> readStruts(X11Connection& connection);

} // namespace korvane
