#include "app/SoundCues.h"

#include "model/Preferences.h"
#include "settings/SoundChoice.h"
#include "settings/SoundPlayer.h"

namespace korvane {

SoundCues::SoundCues(const Preferences& preferences, SoundPlayer& player)
    : m_preferences(preferences)
    , m_player(player)
{
}

void SoundCues::clipCaptured()
{
    play(soundchoices::copy);
}

void SoundCues::clipSelected()
{
    play(soundchoices::select);
}

void SoundCues::keyPressed(const KeyPress& press)
{
    if (press.keyCode == keycodes::v && press.has(modifiers::command)
        && !press.has(modifiers::control))
        play(soundchoices::paste);
}

void SoundCues::play(const SoundChoice& choice)
{
    if (choice.isOn(m_preferences))
        m_player.play(choice.name(m_preferences));
}

} // namespace korvane
