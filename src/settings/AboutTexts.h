#pragma once

#include <string>
#include <string_view>

namespace korvane {

/// The texts of the About page.
namespace abouttexts {
    inline constexpr std::string_view name = "Korvane";
    inline constexpr std::string_view description = "Native macOS menu bar clipboard manager";
    /// What stands for the icon where there is none; one of the program's own symbols.
    inline constexpr std::string_view symbolWithoutIcon = "doc.on.clipboard";

    /// @param version  the build's; where it has none, it is the first
    inline std::string version(std::string_view version)
    {
        return "Version " + std::string(version.empty() ? "1.0" : version);
    }
} // namespace abouttexts

} // namespace korvane
