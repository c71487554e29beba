#pragma once

#include <QWidget>

#include <vector>

namespace korvane::test {

/// The parts of a type that lie in a widget, in the order of their making. The toolkit's own search does
/// not tell our types from those that they derive from.
template <typename Part>
std::vector<Part*> partsOf(const QWidget& whole)
{
    std::vector<Part*> parts;
    for (auto* const child : whole.findChildren<QWidget*>())
        if (auto* const part = dynamic_cast<Part*>(child))
            parts.push_back(part);
    return parts;
}

} // namespace korvane::test
