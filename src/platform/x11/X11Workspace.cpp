#include "platform/x11/X11Workspace.h"

#include "platform/PasswordManagers.h"
#include "platform/x11/X11Connection.h"
#include "platform/xdg/DesktopEntries.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace korvane {

namespace {

    // Terminals that are often installed without a desktop entry of theirs, by class.
    constexpr auto terminalClasses = std::to_array<std::string_view>({ "Alacritty",
        "Gnome-terminal", "Konsole", "Rxvt", "St", "Terminator", "URxvt", "UXTerm", "XTerm",
        "Xfce4-terminal", "foot", "kitty", "konsole", "org.wezfurlong.wezterm", "st-256color" });

    // Not only the name that was found counts: a password manager that was packaged under another
    // identifier, or has no entry at all, is still known by the others.
    std::optional<std::string_view> passwordManager(
        const ProgramHints& program, const std::optional<DesktopEntry>& entry)
    {
        const auto names = std::to_array<std::string_view>(
            { entry ? std::string_view(entry->id) : std::string_view(), program.desktopFile,
                program.applicationId, program.windowClass, program.windowInstance,
                program.executable });
        for (const auto name : names)
            if (const auto identifier = passwordManagerIdentifier(name))
                return identifier;
        return std::nullopt;
    }

    // By custom a title ends with the program's name: "letter.txt - Editor".
    std::string programInTitle(std::string_view title)
    {
        std::size_t start = 0;
        for (const std::string_view dash : { " - ", " – ", " — " })
            if (const auto at = title.rfind(dash); at != std::string_view::npos)
                start = std::max(start, at + dash.size());
        return std::string(title.substr(start));
    }

    std::optional<std::string> unlessEmpty(std::string text)
    {
        return text.empty() ? std::nullopt : std::optional(std::move(text));
    }

} // namespace

X11Workspace::X11Workspace(X11Connection& connection, DesktopEntries& entries,
    std::function<bool(xcb_window_t)> isOwnWindow)
    : m_connection(connection)
    , m_entries(entries)
    , m_isOwnWindow(std::move(isOwnWindow))
{
}

std::optional<xcb_window_t> X11Workspace::activeWindow()
{
    const auto window = readNumber(m_connection, m_connection.root(),
        m_connection.atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW);
    return window == XCB_NONE || m_isOwnWindow(window) ? std::nullopt : std::optional(window);
}

std::optional<RunningApplication> X11Workspace::frontmost()
{
    const auto window = activeWindow();
    const auto hints = window ? readWindowHints(m_connection, *window) : std::nullopt;
    if (!hints)
        return std::nullopt;

    const auto& program = hints->program;
    const auto entry = m_entries.find(program);
    RunningApplication application;
    application.window = *window;
    if (const auto known = passwordManager(program, entry))
        application.bundleIdentifier = *known;
    else
        application.bundleIdentifier = unlessEmpty(entry ? entry->id : program.windowClass);
    application.localizedName = unlessEmpty(entry ? entry->name : program.windowClass);
    if (!application.localizedName)
        application.localizedName = unlessEmpty(programInTitle(hints->title));
    return application;
}

void X11Workspace::activate(const RunningApplication& application)
{
    const auto window = static_cast<xcb_window_t>(application.window);
    const auto attributes = m_connection.reply(
        xcb_get_window_attributes_reply, xcb_get_window_attributes(m_connection.get(), window));
    if (!attributes)
        return;

    xcb_client_message_event_t wish {};
    wish.response_type = XCB_CLIENT_MESSAGE;
    wish.format = 32;
    wish.window = window;
    wish.type = m_connection.atom("_NET_ACTIVE_WINDOW");
    wish.data.data32[0] = 2; // the user's own wish, as from a pager: no manager refuses it
    wish.data.data32[1] = XCB_CURRENT_TIME;
    xcb_send_event(m_connection.get(), 0, m_connection.root(),
        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
        reinterpret_cast<const char*>(&wish));
    // Managers that never noticed our panel think the window active already and do nothing. A window
    // that is hidden cannot take the keyboard: the manager gives it when it has shown the window.
    if (attributes->map_state == XCB_MAP_STATE_VIEWABLE)
        xcb_set_input_focus(m_connection.get(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    m_connection.flush();
}

bool X11Workspace::isTerminalInFront()
{
    const auto window = activeWindow();
    const auto hints = window ? readWindowHints(m_connection, *window) : std::nullopt;
    if (!hints)
        return false;
    const auto entry = m_entries.find(hints->program);
    return (entry && entry->isTerminal)
        || std::ranges::find(terminalClasses, hints->program.windowClass) != terminalClasses.end();
}

} // namespace korvane
