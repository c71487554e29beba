#pragma once

#include <QIcon>

#include <optional>
#include <string_view>

namespace korvane {

class Symbols;

/// The status item's icon. No tray colours an icon to fit itself, so the symbol is drawn light with
/// a dark, translucent edge, which reads on light and dark bars alike. No tray shows a text beside
/// an icon either, so the count is a badge in its corner.
/// @param count  how many clips to tell of, 999 the most; none for no badge
QIcon trayIcon(Symbols& symbols, std::string_view symbol, std::optional<int> count);

} // namespace korvane
