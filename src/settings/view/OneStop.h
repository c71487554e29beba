#pragma once

#include <QAbstractButton>

#include <algorithm>
#include <ranges>

namespace korvane {

/// Makes a row of buttons, of which one is chosen, one stop to the Tab key: it comes to the chosen one,
/// or to the first while none is. The toolkit does so only once one of them has had the keyboard.
void makeOneStop(std::ranges::range auto& row)
{
    const auto chosen = std::ranges::find_if(row, &QAbstractButton::isChecked);
    const auto stop = chosen == std::ranges::end(row) ? std::ranges::begin(row) : chosen;
    for (auto button = std::ranges::begin(row); button != std::ranges::end(row); ++button)
        (*button)->setFocusPolicy(button == stop ? Qt::StrongFocus : Qt::ClickFocus);
}

} // namespace korvane
