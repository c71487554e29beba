#include "model/Preferences.h"

namespace korvane {

Theme theme(const Preferences& preferences)
{
    const auto stored = preferences.string(keys::theme);
    return stored == "light" ? Theme::light : stored == "dark" ? Theme::dark : Theme::automatic;
}

PanelAlignment panelAlignment(const Preferences& preferences)
{
    const auto stored = preferences.string(keys::panelAlignment);
    return stored == "left" ? PanelAlignment::left
        : stored == "right" ? PanelAlignment::right
                            : PanelAlignment::middle;
}

PreviewSide previewSide(const Preferences& preferences)
{
    return preferences.string(keys::previewSide) == "left" ? PreviewSide::left : PreviewSide::right;
}

PreviewPosition previewPosition(const Preferences& preferences)
{
    const auto stored = preferences.string(keys::previewPosition);
    return stored == "top"   ? PreviewPosition::top
        : stored == "follow" ? PreviewPosition::follow
                             : PreviewPosition::middle;
}

ChevronActivation chevronActivation(const Preferences& preferences)
{
    return preferences.string(keys::chevronActivation) == "click" ? ChevronActivation::click
                                                                  : ChevronActivation::hover;
}

bool isTabCyclingEnabled(const Preferences& preferences)
{
    return preferences.value<bool>(keys::enableTabCycling).value_or(true);
}

bool isDirectPasteEnabled(const Preferences& preferences)
{
    return preferences.boolean(keys::enableDirectPaste);
}

} // namespace korvane
