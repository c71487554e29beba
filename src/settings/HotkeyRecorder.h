#pragma once

#include "hotkey/KeyCodes.h"
#include "hotkey/Shortcut.h"
#include "model/Alerts.h"
#include "model/Signal.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace korvane {

class HotkeyManager;
class KeyRecorder;
class Preferences;

/// What the recorder says.
namespace recordertexts {
    inline constexpr std::string_view recording = "Recording… (Esc to cancel)";
    /// For a chord that cannot be had, whoever has asked for it.
    inline Alert shortcutUnavailable()
    {
        return { "Shortcut unavailable",
            "That key combination is already in use by macOS or another app. Please try a "
            "different one.",
            { "OK" } };
    }
} // namespace recordertexts

/// How a recorded key is shown: by its fixed label, else by what it types, else by its number.
std::string recordedLabel(const KeyPress& press);

/// Takes the global shortcut from the keyboard: idle, or recording until the user has pressed a chord
/// that can be had, or has given up.
class HotkeyRecorder {
public:
    /// @param hotkeys  none: there is no application to change the shortcut of
    HotkeyRecorder(
        HotkeyManager* hotkeys, Preferences& preferences, KeyRecorder& keys, Alerts& alerts);
    /// Gives the keyboard back.
    ~HotkeyRecorder();
    HotkeyRecorder(const HotkeyRecorder&) = delete;
    HotkeyRecorder& operator=(const HotkeyRecorder&) = delete;

    bool isRecording() const { return m_isRecording.value(); }
    /// What the field shows: the shortcut that the program acts on, or that it is being recorded.
    std::string text() const;

    /// The user has clicked the field: begins to record, or ends.
    /// @param window  see `KeyRecorder::start`
    void fieldClicked(std::uint64_t window);
    /// Ends to record; the stored shortcut stays.
    void stopRecording();
    /// Takes Control-Space again, where it can be had. Where it cannot, nothing happens and nobody is
    /// told, deliberately.
    void reset();

    /// `text` or `isRecording` may have another answer.
    Signal<> changed;

private:
    Shortcut presentShortcut() const;
    void keyPressed(const KeyPress& press);
    void apply(const Shortcut& shortcut);
    void refuse();

    HotkeyManager* m_hotkeys;
    Preferences& m_preferences;
    KeyRecorder& m_keys;
    Alerts& m_alerts;
    Observable<bool> m_isRecording;
    Observable<Shortcut> m_stored;
    /// Recording, and waiting for the user to have read why not this chord.
    bool m_isRefusing = false;
    /// Shared with an alert that is shown, whose end then ends no other recording than its own.
    std::shared_ptr<bool> m_recording;
    std::array<Connection, 7> m_connections;
};

} // namespace korvane
