#pragma once

#include <QFontMetricsF>
#include <QString>

namespace korvane {

/// A text on one line with "…" in the place of its end where there is no room for the whole. Unlike
/// the toolkit's own function it measures only about as much of the text as there is room for: each
/// emoji that is measured for the first time is a picture to unpack.
/// @param width  in points of the panel
QString elidedText(const QString& text, const QFontMetricsF& font, double width);

} // namespace korvane
