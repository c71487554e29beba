#include "settings/view/Bindings.h"

#include "settings/view/SegmentedPicker.h"
#include "settings/view/Switch.h"

#include <utility>

namespace korvane {

Connection keepInStep(
    Switch& control, Preferences& preferences, std::string_view key, bool whenAbsent)
{
    control.onTurned = [&preferences, key](bool isOn) { preferences.set(key, isOn); };
    const auto show = [&control, &preferences, key, whenAbsent] {
        control.setOn(preferences.value<bool>(key).value_or(whenAbsent));
    };
    show();
    return preferences.changed.connect(show);
}

Connection keepInStep(SegmentedPicker& control, Preferences& preferences, std::string_view key,
    std::function<std::string(const Preferences&)> shown)
{
    control.onChosen
        = [&preferences, key](std::string_view value) { preferences.set(key, std::string(value)); };
    const auto show = [&control, &preferences, shown = std::move(shown)] {
        control.setValue(shown(preferences));
    };
    show();
    return preferences.changed.connect(show);
}

} // namespace korvane
