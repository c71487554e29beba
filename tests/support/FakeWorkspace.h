#pragma once

#include "capture/Workspace.h"

#include <string>
#include <utility>
#include <vector>

namespace korvane::test {

/// A desktop with the front application that the test puts there.
class FakeWorkspace : public Workspace {
public:
    std::optional<RunningApplication> frontmost() override
    {
        ++asked;
        return front;
    }
    void activate(const RunningApplication& application) override
    {
        activated.push_back(application);
        front = application;
    }

    void bringToFront(std::string bundleIdentifier, std::string localizedName)
    {
        front = RunningApplication { std::move(bundleIdentifier), std::move(localizedName), 1 };
    }

    std::optional<RunningApplication> front;
    int asked = 0;
    std::vector<RunningApplication> activated;
};

} // namespace korvane::test
