#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

class WaylandConnection;

/// What a compositor offers, as its registry tells.
struct CompositorServices {
    /// The version of each global, by the name of its interface.
    std::map<std::string, std::uint32_t, std::less<>> globals;

    static CompositorServices of(const WaylandConnection& connection);

    bool offers(std::string_view interface) const { return globals.contains(interface); }
    /// Tells of copies that are made in other programs, and lets them be read.
    bool hasDataControl() const;
    /// Lets a surface be placed above all windows, with the keyboard.
    bool hasLayerShell() const;
    /// Lists the windows of other programs, and brings one to the front.
    bool hasWindowList() const;
    /// KDE's, whose session has a service for global shortcuts.
    bool isKde() const;
    /// Takes keys that a program types.
    bool hasTyping() const;
};

/// Asks the compositor that WAYLAND_DISPLAY names, over a short connection of its own that is closed when
/// this returns. None when there is none, or it does not answer within two seconds. Needs no main loop:
/// it is asked before the toolkit starts.
std::optional<CompositorServices> lookAtCompositor();

} // namespace korvane
