#pragma once

#include "settings/SoundPlayer.h"

#include <filesystem>
#include <memory>
#include <thread>

namespace korvane {

class Log;

/// Plays the program's own sound files by libcanberra, on a thread of its own: the library waits for
/// the sound server, for as long as that hangs, and the panel must not. The thread touches nothing
/// of the program's; it is made when the first sound is played.
class CanberraSoundPlayer : public SoundPlayer {
public:
    /// @param folder  holds one file for each of `soundNames`: the name and ".wav"
    CanberraSoundPlayer(std::filesystem::path folder, Log& log);
    /// Ends sounds under way. Waits a moment for the thread, not for a server that hangs.
    ~CanberraSoundPlayer() override;
    CanberraSoundPlayer(const CanberraSoundPlayer&) = delete;
    CanberraSoundPlayer& operator=(const CanberraSoundPlayer&) = delete;

    /// A sound that cannot be played (no sound server, a missing file) goes unheard. The first such
    /// failure is logged, when the next sound is played.
    void play(std::string_view name) override;

private:
    struct Desk;

    void logOnce(int error);

    std::filesystem::path m_folder;
    Log& m_log;
    bool m_isFailureLogged = false;
    // Shared with the thread, which outlives us when it hangs in the library.
    std::shared_ptr<Desk> m_desk;
    std::thread m_thread;
};

/// Where the sounds lie: beside the installed program ("../share/korvane/sounds"), else in the
/// source tree that the program was built from.
/// @param program  the program's own file
std::filesystem::path findSoundsFolder(
    const std::filesystem::path& program, const std::filesystem::path& sourceFolder);

} // namespace korvane
