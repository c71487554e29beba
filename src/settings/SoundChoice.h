#pragma once

#include "model/Preferences.h"

#include <string>
#include <string_view>

namespace korvane {

/// One of the events that have a sound: its switch, the name of its sound, and the sound while none
/// has been chosen.
struct SoundChoice {
    std::string_view switchKey;
    std::string_view nameKey;
    std::string_view nameWhenAbsent;
    char letter; ///< that plays it in the settings, together with Alt

    /// Off where nothing is stored.
    bool isOn(const Preferences& preferences) const;
    /// The chosen name, which need not be one of those that are offered.
    std::string name(const Preferences& preferences) const;
};

/// The events, each with a switch and a name of its own.
namespace soundchoices {
    inline constexpr SoundChoice copy { keys::playSoundOnCopy, keys::copySoundName, "Tink", 'C' };
    inline constexpr SoundChoice select { keys::playSoundOnSelect, keys::selectSoundName, "Pop",
        'L' };
    inline constexpr SoundChoice paste { keys::playSoundOnPaste, keys::pasteSoundName, "Hero",
        'T' };
} // namespace soundchoices

} // namespace korvane
