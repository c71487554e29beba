#pragma once

#include "settings/SoundPlayer.h"

#include <string>
#include <vector>

namespace korvane::test {

/// Keeps the names of the sounds that were played.
class FakeSoundPlayer : public SoundPlayer {
public:
    void play(std::string_view name) override { played.emplace_back(name); }

    std::vector<std::string> played;
};

} // namespace korvane::test
