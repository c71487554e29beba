#include "session/SessionChoice.h"

#include "platform/X11Platform.h"

#include <cstdlib>

namespace korvane {

namespace {

    std::string variable(const char* name)
    {
        const char* const value = std::getenv(name);
        return value != nullptr ? value : "";
    }

    std::string whyNoX11(const SessionFacts& facts)
    {
        return "there is no X11 display ("
            + (facts.x11Display.empty() ? std::string("DISPLAY is not set")
                                        : "no X server answers at " + facts.x11Display)
            + ")";
    }

    std::string whyNoWayland(const SessionFacts& facts)
    {
        if (facts.waylandDisplay.empty())
            return "there is no Wayland display (WAYLAND_DISPLAY is not set)";
        if (!facts.compositor)
            return "no Wayland compositor answers at " + facts.waylandDisplay;
        return std::string("the compositor offers no ")
            + (facts.compositor->hasDataControl() ? "layers (wlr-layer-shell)"
                                                  : "clipboard of other programs (data-control)");
    }

    SessionChoice choose(DisplayServer server)
    {
        return { server, {} };
    }

} // namespace

SessionFacts SessionFacts::ofProcess()
{
    SessionFacts facts { variable("KORVANE_PLATFORM"), variable("WAYLAND_DISPLAY"), std::nullopt,
        variable("DISPLAY"), false };
    // A compositor that is not this session's own may have left its socket at the usual place.
    if (!facts.waylandDisplay.empty())
        facts.compositor = lookAtCompositor();
    facts.isX11There = !facts.x11Display.empty() && hasDisplay();
    return facts;
}

bool SessionFacts::isCompositorFit() const
{
    return compositor && compositor->hasDataControl() && compositor->hasLayerShell();
}

SessionChoice chooseSession(const SessionFacts& facts)
{
    if (!facts.wanted.empty() && facts.wanted != "x11" && facts.wanted != "wayland")
        return { std::nullopt,
            "KORVANE_PLATFORM is \"" + facts.wanted + "\"; it may be x11 or wayland" };
    if (facts.wanted == "wayland" && !facts.isCompositorFit())
        return { std::nullopt, whyNoWayland(facts) };
    if (facts.wanted != "x11" && facts.isCompositorFit())
        return choose(DisplayServer::wayland);
    if (facts.isX11There)
        return choose(DisplayServer::x11);
    if (facts.wanted == "x11" || facts.waylandDisplay.empty())
        return { std::nullopt, whyNoX11(facts) };
    return { std::nullopt, whyNoWayland(facts) + ", and " + whyNoX11(facts) };
}

} // namespace korvane
