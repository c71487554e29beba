#pragma once

#include <QString>

class QEvent;
class QFont;
class QWidget;

namespace korvane {

/// The text in lines that are no wider than tips are with us; a text that fits stays one line.
QString wrappedTip(const QString& text, const QFont& font);

/// Shows the tip of a widget in several lines, where the event asks for the tip. The toolkit wraps none but
/// formatted texts, and a long one would go over half of a wide screen.
/// @return whether it has been shown
bool showWrappedTip(const QEvent& event, QWidget& widget);

} // namespace korvane
