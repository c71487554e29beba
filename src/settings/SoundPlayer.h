#pragma once

#include <string_view>

namespace korvane {

/// Plays the program's named sounds.
class SoundPlayer {
public:
    virtual ~SoundPlayer() = default;

    /// Starts the sound and returns; a name that is none of `soundNames` plays nothing.
    virtual void play(std::string_view name) = 0;
};

} // namespace korvane
