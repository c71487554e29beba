#include "settings/SoundChoice.h"

namespace korvane {

bool SoundChoice::isOn(const Preferences& preferences) const
{
    return preferences.boolean(switchKey);
}

std::string SoundChoice::name(const Preferences& preferences) const
{
    return preferences.string(nameKey).value_or(std::string(nameWhenAbsent));
}

} // namespace korvane
