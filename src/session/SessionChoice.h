#pragma once

#include "platform/wayland/CompositorServices.h"

#include <optional>
#include <string>
#include <string_view>

namespace korvane {

enum class DisplayServer { x11, wayland };

/// What the environment tells of the session, before the toolkit starts.
struct SessionFacts {
    /// KORVANE_PLATFORM: "x11" or "wayland"; empty: as it fits the session.
    std::string wanted;
    /// WAYLAND_DISPLAY; empty where it is not set.
    std::string waylandDisplay;
    /// What that compositor offers; none where it does not answer.
    std::optional<CompositorServices> compositor;
    /// DISPLAY; empty where it is not set.
    std::string x11Display;
    bool isX11There = false; ///< An X server answers at that.

    /// Asks them, which takes a few milliseconds.
    static SessionFacts ofProcess();

    /// Whether the compositor offers what the program cannot do without: the clipboard of others, and a
    /// place for the panel.
    bool isCompositorFit() const;
};

/// Which display server the program runs on, or why on none.
struct SessionChoice {
    std::optional<DisplayServer> server;
    std::string reason; ///< where there is none: a line for standard error, without "korvane: "
};

/// Under Xwayland the X11 backends are blind where the compositor has the services of its own: an X client
/// that is not in front hears of no copy. So they are taken only where there are none.
SessionChoice chooseSession(const SessionFacts& facts);

/// What this session can do and cannot, line by line, for `korvane --platform`; ends with a line feed.
std::string sessionReport(const SessionFacts& facts, std::string_view program);

} // namespace korvane
