#include "platform/SessionKind.h"

namespace korvane {

SessionKind sessionKind(const SessionFacts& facts)
{
    const bool canServeWayland = facts.hasDataControl && facts.hasLayerShell;
    const auto throughX11 = !facts.hasX11Display ? SessionKind::none
        : facts.hasCompositor                    ? SessionKind::limitedX11
                                                 : SessionKind::x11;
    if (facts.wish == "x11")
        return throughX11;
    if (facts.wish == "wayland")
        return canServeWayland ? SessionKind::wayland : SessionKind::none;
    return canServeWayland ? SessionKind::wayland : throughX11;
}

} // namespace korvane
