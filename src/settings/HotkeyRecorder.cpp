#include "settings/HotkeyRecorder.h"

#include "hotkey/HotkeyManager.h"
#include "hotkey/KeyRecorder.h"
#include "model/Preferences.h"
#include "model/Text.h"

namespace korvane {

std::string recordedLabel(const KeyPress& press)
{
    if (const auto label = keyLabel(press.keyCode))
        return std::string(*label);
    if (!press.characters.empty())
        return upperCased(press.characters);
    return "Key " + std::to_string(press.keyCode);
}

HotkeyRecorder::HotkeyRecorder(
    HotkeyManager* hotkeys, Preferences& preferences, KeyRecorder& keys, Alerts& alerts)
    : m_hotkeys(hotkeys)
    , m_preferences(preferences)
    , m_keys(keys)
    , m_alerts(alerts)
{
    m_stored.set(presentShortcut());
    m_connections = {
        m_keys.keyDown.connect([this](const KeyPress& press) { keyPressed(press); }),
        m_keys.unnamedKeyDown.connect([this] {
            if (isRecording() && !m_isRefusing)
                m_keys.beep();
        }),
        m_preferences.changed.connect([this] { m_stored.set(presentShortcut()); }),
        m_hotkeys != nullptr
            ? m_hotkeys->observeShortcut([this](const Shortcut& now) { m_stored.set(now); })
            : Connection(),
        m_keys.gaveUp.connect([this] {
            if (isRecording() && !m_isRefusing)
                stopRecording();
        }),
        m_isRecording.onChange([this](bool) { changed(); }),
        m_stored.onChange([this](const Shortcut&) { changed(); }),
    };
}

HotkeyRecorder::~HotkeyRecorder()
{
    m_keys.stop();
}

// Without an application the stored one; while that is none, the one before.
Shortcut HotkeyRecorder::presentShortcut() const
{
    return m_hotkeys != nullptr ? m_hotkeys->shortcut()
                                : storedShortcut(m_preferences).value_or(m_stored.value());
}

std::string HotkeyRecorder::text() const
{
    return isRecording() ? std::string(recordertexts::recording) : displayText(m_stored.value());
}

void HotkeyRecorder::fieldClicked(std::uint64_t window)
{
    if (isRecording()) {
        stopRecording();
        return;
    }
    m_keys.stop();
    m_recording = std::make_shared<bool>(true);
    // Where the keyboard cannot be had, the window's own key presses must do.
    static_cast<void>(m_keys.start(window));
    m_isRecording.set(true);
}

void HotkeyRecorder::stopRecording()
{
    m_isRefusing = false;
    m_recording.reset();
    m_keys.stop();
    m_isRecording.set(false);
}

void HotkeyRecorder::reset()
{
    if (m_hotkeys == nullptr)
        return stopRecording();
    static_cast<void>(m_hotkeys->restoreDefaultShortcut());
}

void HotkeyRecorder::keyPressed(const KeyPress& press)
{
    if (!isRecording() || m_isRefusing)
        return;
    if (press.keyCode == keycodes::escape)
        return stopRecording();
    const auto mask = press.modifiers & modifiers::all;
    if (mask == 0) { // it would take the key from everybody's typing
        m_keys.beep();
        return;
    }
    apply({ press.keyCode, mask, recordedLabel(press) });
}

void HotkeyRecorder::apply(const Shortcut& shortcut)
{
    if (m_hotkeys == nullptr || m_hotkeys->changeShortcut(shortcut))
        stopRecording();
    else
        refuse();
}

// The recording goes on until the alert has been read, but the keyboard is needed to answer it.
void HotkeyRecorder::refuse()
{
    m_isRefusing = true;
    m_keys.stop();
    m_alerts.tell(recordertexts::shortcutUnavailable(),
        [this, recording = std::weak_ptr(m_recording)](AlertAnswer) {
            if (!recording.expired())
                stopRecording();
        });
}

} // namespace korvane
