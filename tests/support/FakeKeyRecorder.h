#pragma once

#include "hotkey/KeyRecorder.h"

#include <optional>
#include <utility>
#include <vector>

namespace korvane::test {

/// A keyboard whose keys the test presses.
class FakeKeyRecorder : public KeyRecorder {
public:
    bool start(std::uint64_t window) override
    {
        ++starts;
        listensFor = window;
        return canStart;
    }
    void stop() override { listensFor.reset(); }
    void windowKeyPressed(std::uint32_t key, std::uint32_t state) override
    {
        windowKeys.emplace_back(key, state);
    }
    void beep() override { ++beeps; }

    bool isListening() const { return listensFor.has_value(); }

    bool canStart = true;
    std::optional<std::uint64_t> listensFor;
    std::vector<std::pair<std::uint32_t, std::uint32_t>> windowKeys;
    int starts = 0;
    int beeps = 0;
};

} // namespace korvane::test
