#pragma once

#include <QIcon>

namespace korvane {

/// The program's own picture, drawn in whatever size it is asked for.
QIcon applicationIcon();

} // namespace korvane
