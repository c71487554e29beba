#pragma once

#include "app/Windows.h"
#include "look/view/Colours.h"
#include "model/Signal.h"

#include <QPalette>

namespace korvane {

/// Gives all windows of the program their colours, and stills them where the user wants no animations.
class ApplicationTheme : public Appearance {
public:
    /// @param systemIsDark  what the desktop prefers; followed by `Theme::automatic`
    /// @param isAnimated    whether the desktop lets things move; may change at any time
    ApplicationTheme(Observable<bool>& systemIsDark, Observable<bool>& isAnimated);

    void apply(Theme theme) override;

private:
    void dress();

    Observable<bool>& m_systemIsDark;
    Theme m_theme = Theme::automatic;
    Connection m_systemChanged;
};

/// The colours of the toolkit's own controls.
QPalette applicationPalette(ColourScheme scheme);

} // namespace korvane
