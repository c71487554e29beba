#pragma once

#include <string_view>

namespace korvane {

/// By which backends this session is served. Decided once, before the toolkit starts.
enum class SessionKind {
    none,       ///< There is nothing to show a window on.
    x11,        ///< An X11 session.
    wayland,    ///< A compositor with what a clipboard history needs.
    limitedX11, ///< A compositor without it: X11's backends, through its server for X clients.
};

/// What is there to choose from.
struct SessionFacts {
    bool hasX11Display = false;
    bool hasCompositor = false;
    /// The compositor tells of copies that are made in other programs, and lets them be read.
    bool hasDataControl = false;
    /// The compositor lets a window be placed above all others, with the keyboard.
    bool hasLayerShell = false;
    /// The value of KORVANE_PLATFORM; empty: it is not set.
    std::string_view wish {};
};

/// The kind of a session, from what there is. With data-control the X11 backends are never taken unless
/// they are wished for: behind such a compositor an X client that is not in front hears of no copy.
///
/// A wish ("x11" or "wayland") that cannot be fulfilled makes it `none`, deliberately: who asks for one
/// of them wants to know that it is not there. Any other wish is none.
SessionKind sessionKind(const SessionFacts& facts);

} // namespace korvane
