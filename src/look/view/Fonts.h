#pragma once

#include <QFont>

namespace korvane {

/// The desktop's own font in one of the panel's sizes.
/// @param size  in points of the panel, which are logical pixels; fractions count
QFont textFont(double size, QFont::Weight weight = QFont::Normal);
/// The desktop's monospaced font, in the same measure.
QFont codeFont(double size);

} // namespace korvane
