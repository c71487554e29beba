#include "settings/GeneralTexts.h"

namespace korvane::generaltexts {

std::string chevronValue(const Preferences& preferences)
{
    return chevronActivation(preferences) == ChevronActivation::click ? "click" : "hover";
}

std::string themeValue(const Preferences& preferences)
{
    const auto chosen = korvane::theme(preferences);
    return chosen == Theme::light ? "light" : chosen == Theme::dark ? "dark" : "auto";
}

std::string alignmentValue(const Preferences& preferences)
{
    const auto chosen = korvane::panelAlignment(preferences);
    return chosen == PanelAlignment::left ? "left"
        : chosen == PanelAlignment::right ? "right"
                                          : "middle";
}

std::string sideValue(const Preferences& preferences)
{
    return korvane::previewSide(preferences) == PreviewSide::left ? "left" : "right";
}

std::string positionValue(const Preferences& preferences)
{
    const auto chosen = korvane::previewPosition(preferences);
    return chosen == PreviewPosition::top   ? "top"
        : chosen == PreviewPosition::follow ? "follow"
                                            : "middle";
}

} // namespace korvane::generaltexts
