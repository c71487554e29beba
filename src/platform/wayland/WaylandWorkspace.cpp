#include "platform/wayland/WaylandWorkspace.h"

#include "model/Text.h"
#include "platform/ApplicationNames.h"

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

    using std::chrono::steady_clock;

    // A window of which nothing is told in this time is none that anybody works in.
    constexpr std::chrono::seconds patience { 1 };
    // No name of a program is longer, and a title of this length says all that is used of it.
    constexpr std::size_t maxTextBytes = 1024;

    std::string shortText(std::string text)
    {
        text.resize(std::min(text.size(), maxTextBytes));
        return repairedUtf8(std::move(text));
    }

    ProgramHints hintsOf(const ListedWindow& window)
    {
        const auto appId = shortText(window.appId);
        return { .desktopFile = appId,
            .windowClass = appId,
            .executable = window.process == 0 ? std::string() : programName(window.process) };
    }

} // namespace

WaylandWorkspace::WaylandWorkspace(
    WaylandConnection& connection, DesktopEntries& entries, std::function<bool()> isPanelOpen)
    : m_connection(connection)
    , m_entries(entries)
    , m_isPanelOpen(std::move(isPanelOpen))
    , m_list(WindowList::open(connection,
          { .announced =
                  [this](std::uint64_t id) {
                      follow([this, id] { m_unknown[id] = steady_clock::now(); });
                  },
              .changed =
                  [this](const ListedWindow& window) {
                      follow([this, window] { windowChanged(window); });
                  },
              .closed = [this](std::uint64_t id) { follow([this, id] { windowClosed(id); }); } }))
{
    // The windows, and on KDE, where each is asked for, what they tell.
    m_connection.roundTrip();
    m_connection.roundTrip();
    m_isStarting = false;
}

void WaylandWorkspace::follow(MainLoop::Task news)
{
    if (m_isStarting)
        news();
    else
        m_connection.tellInOrder(m_life, std::move(news));
}

void WaylandWorkspace::windowChanged(const ListedWindow& window)
{
    m_unknown.erase(window.id);
    m_windows[window.id] = window;
    if (window.isActive)
        m_front = window.id;
    else if (window.id == m_front && !m_isPanelOpen())
        m_front = 0;
}

void WaylandWorkspace::windowClosed(std::uint64_t id)
{
    m_unknown.erase(id);
    m_windows.erase(id);
    if (m_front == id)
        m_front = 0;
}

const ListedWindow* WaylandWorkspace::inFront() const
{
    const auto found = m_windows.find(m_front);
    return found == m_windows.end() ? nullptr : &found->second;
}

bool WaylandWorkspace::isFrontUnknown() const
{
    return std::ranges::any_of(m_unknown,
        [now = steady_clock::now()](const auto& window) { return now - window.second < patience; });
}

std::uint64_t WaylandWorkspace::frontWindow() const
{
    return isFrontUnknown() ? 0 : m_front;
}

std::optional<RunningApplication> WaylandWorkspace::frontmost()
{
    RunningApplication application;
    application.isKnown = !isFrontUnknown();
    if (!application.isKnown)
        return application;
    const auto* const window = inFront();
    if (window == nullptr)
        return std::nullopt;
    const auto program = hintsOf(*window);
    application = applicationBehind(program, m_entries.find(program), shortText(window->title));
    application.window = window->id;
    return application;
}

void WaylandWorkspace::activate(const RunningApplication& application)
{
    if (m_list)
        m_list->activate(application.window);
}

bool WaylandWorkspace::isTerminalInFront()
{
    const auto* const window = inFront();
    if (window == nullptr)
        return false;
    const auto program = hintsOf(*window);
    return isTerminal(program, m_entries.find(program));
}

} // namespace korvane
