#pragma once

#include "panel/PanelHost.h"

#include <string>
#include <utility>
#include <vector>

namespace korvane::test {

/// Records what was done with which clip.
class FakeClipActions : public ClipActions {
public:
    /// The name of the action and the clip's text.
    using Done = std::pair<std::string, std::string>;

    void place(const ClipItem& clip) override { done.emplace_back("place", clip.text); }
    void copy(const ClipItem& clip) override { done.emplace_back("copy", clip.text); }
    void choose(const ClipItem& clip) override { done.emplace_back("choose", clip.text); }
    void activate(const ClipItem& clip) override { done.emplace_back("activate", clip.text); }
    void reveal(const ClipItem& clip) override { done.emplace_back("reveal", clip.text); }

    std::vector<Done> done;
};

} // namespace korvane::test
