#pragma once

#include "hotkey/KeyCodes.h"

namespace korvane {

class Preferences;
class SoundPlayer;
struct SoundChoice;

/// Which event plays which sound. Each has a switch and a name of its own in the preferences, read
/// anew each time; all are off until the user switches them on.
class SoundCues {
public:
    SoundCues(const Preferences& preferences, SoundPlayer& player);

    /// A clip was captured.
    void clipCaptured();
    /// A clip was selected in the panel.
    void clipSelected();
    /// A key was pressed somewhere: Command-V is a paste, with Shift or Option too, but not with
    /// Control. The user's own pastes in any program sound as well as ours, deliberately.
    void keyPressed(const KeyPress& press);

private:
    void play(const SoundChoice& choice);

    const Preferences& m_preferences;
    SoundPlayer& m_player;
};

} // namespace korvane
