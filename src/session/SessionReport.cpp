#include "session/SessionChoice.h"

#include <array>
#include <string_view>

namespace korvane {

namespace {

    constexpr std::string_view restricted
        = "KDE gives it to a program whose installed desktop entry asks for it: install Korvane";
    constexpr std::string_view ownPastes = "no compositor tells what is typed elsewhere, so the "
                                           "paste sound follows Korvane's own pastes";

    struct Line {
        std::string_view service;
        bool isThere;
        std::string advice; ///< what to do or to know; empty: nothing
    };

    std::string text(const Line& line)
    {
        constexpr std::size_t column = 26;
        std::string result = "  " + std::string(line.service);
        result.resize(column, ' ');
        result += line.isThere ? "yes\n" : "no\n";
        return line.advice.empty() ? result : result + "      " + line.advice + "\n";
    }

    std::string bindAdvice(std::string_view program)
    {
        return "have the desktop run this at a key of your choice: " + std::string(program)
            + " --toggle\n      on sway: bindsym Ctrl+space exec " + std::string(program)
            + " --toggle";
    }

    /// What to do about a service that is missing, and what it means.
    std::string adviceFor(const CompositorServices& services, std::string_view meaning)
    {
        return services.isKde() ? std::string(restricted) + "; " + std::string(meaning)
                                : std::string(meaning);
    }

    std::string onWayland(const CompositorServices& services, std::string_view program)
    {
        const bool listsWindows = services.hasWindowList();
        const bool types = services.hasTyping();
        const auto lines = std::to_array<Line>({
            { "copies of all programs", true, "" },
            { "panel under the icon", true, "" },
            { "application in front", listsWindows,
                listsWindows
                    ? ""
                    : adviceFor(services, "without it ignored applications are not known") },
            { "pasting", types,
                types ? "" : adviceFor(services, "without it, paste by the keyboard") },
            { "global shortcut", services.isKde(), services.isKde() ? "" : bindAdvice(program) },
            { "key presses elsewhere", false, std::string(ownPastes) },
        });
        std::string report = "Wayland\n";
        for (const auto& line : lines)
            report += text(line);
        return report;
    }

    std::string onX11(const SessionFacts& facts, std::string_view program)
    {
        if (facts.waylandDisplay.empty())
            return "X11\n" + text({ "copies of all programs", true, "" })
                + text({ "panel under the icon", true, "" })
                + text({ "application in front", true, "" }) + text({ "pasting", true, "" })
                + text({ "global shortcut", true, "" })
                + text({ "key presses elsewhere", true, "" });
        // The X11 of a compositor that has the services of its own is blind.
        const bool isBlind = facts.isCompositorFit();
        return std::string(isBlind
                       ? "X11, by Xwayland, as KORVANE_PLATFORM says\n"
                       : "X11, by Xwayland, as the compositor offers too little to a program\n")
            + text({ "copies of all programs", !isBlind,
                isBlind ? "only what is copied while an X11 program is in front; without "
                          "KORVANE_PLATFORM, all"
                        : "" })
            + text({ "panel under the icon", true, "" })
            + text({ "application in front", false, "known for X11 programs only" })
            + text({ "pasting", false, "into X11 programs only" })
            + text({ "global shortcut", false, bindAdvice(program) })
            + text({ "key presses elsewhere", false, std::string(ownPastes) });
    }

} // namespace

std::string sessionReport(const SessionFacts& facts, std::string_view program)
{
    const auto choice = chooseSession(facts);
    if (!choice.server)
        return "none: " + choice.reason + "\n";
    return *choice.server == DisplayServer::wayland ? onWayland(*facts.compositor, program)
                                                    : onX11(facts, program);
}

} // namespace korvane
