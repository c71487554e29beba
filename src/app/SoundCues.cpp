#include "app/SoundCues.h"

#include "model/Preferences.h"
#include "settings/SoundPlayer.h"

#include <string>

namespace korvane {

SoundCues::SoundCues(const Preferences& preferences, SoundPlayer& player)
    : m_preferences(preferences)
    , m_player(player)
{
}

void SoundCues::clipCaptured()
{
    play(keys::playSoundOnCopy, keys::copySoundName, "Tink");
}

void SoundCues::clipSelected()
{
    play(keys::playSoundOnSelect, keys::selectSoundName, "Pop");
}

void SoundCues::keyPressed(const KeyPress& press)
{
    if (press.keyCode == keycodes::v && press.has(modifiers::command)
        && !press.has(modifiers::control))
        play(keys::playSoundOnPaste, keys::pasteSoundName, "Hero");
}

void SoundCues::play(
    std::string_view switchKey, std::string_view nameKey, std::string_view nameWhenAbsent)
{
    if (m_preferences.boolean(switchKey))
        m_player.play(m_preferences.string(nameKey).value_or(std::string(nameWhenAbsent)));
}

} // namespace korvane
