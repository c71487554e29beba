#pragma once

#include "support/Parts.h"

#include <QWidget>

#include <algorithm>
#include <utility>
#include <vector>

namespace korvane::test {

/// The same as `partsOf`, in the order in which one reads them: from top to bottom, and from left to
/// right.
template <typename Kind>
std::vector<Kind*> allWithin(const QWidget& outer)
{
    auto found = partsOf<Kind>(outer);
    const auto place = [&](const Kind* one) {
        const auto at = one->mapTo(&outer, QPoint(0, 0));
        return std::pair(at.y(), at.x());
    };
    std::stable_sort(found.begin(), found.end(),
        [&](const Kind* a, const Kind* b) { return place(a) < place(b); });
    return found;
}

} // namespace korvane::test
