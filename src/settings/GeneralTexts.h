#pragma once

#include "model/Preferences.h"
#include "settings/Choice.h"

#include <array>
#include <string>
#include <string_view>

namespace korvane {

/// The texts of the General page, and what its pickers offer.
namespace generaltexts {
    inline constexpr std::string_view general = "General";
    inline constexpr std::string_view appearance = "Appearance";
    inline constexpr std::string_view position = "Panel and preview position";

    inline constexpr std::string_view launchAtLogin = "Launch at login";
    inline constexpr std::string_view chevronScrolling = "Chevron scrolling:";
    inline constexpr std::string_view chevronToolTip
        = "\"On hover\" scrolls the clip list continuously while the cursor sits on the up/down "
          "chevron. \"On click\" scrolls a few rows per tap.";
    inline constexpr std::string_view showCount = "Show clip count in menu bar";
    inline constexpr std::string_view soundOnCopy = "Play sound on copy";
    inline constexpr std::string_view soundOnSelect = "Play sound on select in list";
    inline constexpr std::string_view soundOnPaste = "Play sound on paste";
    inline constexpr std::string_view sound = "Sound:";
    inline constexpr std::string_view previewSound = "Preview sound";
    inline constexpr std::string_view theme = "Theme:";
    inline constexpr std::string_view panelAlignment = "Panel alignment below icon:";
    inline constexpr std::string_view previewSide = "Preview side:";
    inline constexpr std::string_view previewPosition = "Preview position:";

    inline constexpr std::array chevronChoices { Choice { "On hover", "hover" },
        Choice { "On click", "click" } };
    inline constexpr std::array themeChoices { Choice { "Automatic", "auto" },
        Choice { "Light", "light" }, Choice { "Dark", "dark" } };
    inline constexpr std::array alignmentChoices { Choice { "Left", "left" },
        Choice { "Middle", "middle" }, Choice { "Right", "right" } };
    inline constexpr std::array sideChoices { Choice { "Left", "left" },
        Choice { "Right", "right" } };
    inline constexpr std::array positionChoices { Choice { "Top", "top" },
        Choice { "Middle", "middle" }, Choice { "Follow", "follow" } };

    /// Which of the choices the preferences stand for; what is stored and is none of them counts as
    /// the default, as it does for the program.
    std::string chevronValue(const Preferences& preferences);
    std::string themeValue(const Preferences& preferences);
    std::string alignmentValue(const Preferences& preferences);
    std::string sideValue(const Preferences& preferences);
    std::string positionValue(const Preferences& preferences);
} // namespace generaltexts

} // namespace korvane
