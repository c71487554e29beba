#pragma once

#include "app/Windows.h"
#include "model/Signal.h"
#include "panel/view/PanelStyle.h"

#include <QPalette>

namespace korvane {

/// Gives all windows of the program their colours.
class ApplicationTheme : public Appearance {
public:
    /// @param systemIsDark  what the desktop prefers; followed by `Theme::automatic`
    explicit ApplicationTheme(Observable<bool>& systemIsDark);

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
