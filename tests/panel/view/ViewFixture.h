#pragma once

#include "panel/PanelFixture.h"

#include <string>

namespace korvane::test {

/// What stands behind the panel's views, and a history of clips that are easy to tell apart.
struct ViewFixture : PanelFixture {
    /// "clip 1" on top, down to the last.
    void addNumbered(int count)
    {
        for (int number = count; number > 0; --number)
            add("clip " + std::to_string(number));
    }
    PanelState& panel() { return store.panel(); }
};

} // namespace korvane::test
