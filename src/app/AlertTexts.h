#pragma once

#include "app/Windows.h"

namespace korvane {

/// The alerts that the program can show.
namespace alerttexts {
    inline constexpr Alert shortcutUnavailable { "Shortcut unavailable",
        "That key combination is already in use by macOS or another app. Please try a different "
        "one.",
        "OK" };
} // namespace alerttexts

} // namespace korvane
