#include "platform/x11/X11Workspace.h"

#include "platform/ApplicationNames.h"
#include "platform/x11/FocusEvents.h"
#include "platform/x11/X11Connection.h"
#include "platform/xdg/DesktopEntries.h"

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

    // The number under which the errors of requests that await no answer come among the events.
    constexpr std::uint8_t errorEvent = 0;

} // namespace

X11Workspace::X11Workspace(X11Connection& connection, DesktopEntries& entries,
    std::function<bool(xcb_window_t)> isOwnWindow)
    : m_connection(connection)
    , m_entries(entries)
    , m_isOwnWindow(std::move(isOwnWindow))
    , m_activeWindow(connection.atom("_NET_ACTIVE_WINDOW"))
    , m_clientList(connection.atom("_NET_CLIENT_LIST"))
{
    watch();
    listenToWindows();
    activeWindowChanged();
}

void X11Workspace::watch()
{
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(
        m_connection.get(), m_connection.root(), XCB_CW_EVENT_MASK, &events);
    m_connection.flush();
    m_events.push_back(m_connection.onEvent(XCB_PROPERTY_NOTIFY, [this](const auto& event) {
        const auto& changed = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (changed.window != m_connection.root())
            return;
        if (changed.atom == m_clientList)
            listenToWindows();
        else if (changed.atom == m_activeWindow)
            activeWindowChanged();
    }));
    m_events.push_back(m_connection.onEvent(XCB_FOCUS_IN, [this](const auto& event) {
        focusCame(reinterpret_cast<const xcb_focus_in_event_t&>(event));
    }));
    m_events.push_back(m_connection.onEvent(XCB_FOCUS_OUT, [this](const auto& event) {
        focusLeft(reinterpret_cast<const xcb_focus_out_event_t&>(event));
    }));
    // Not every manager says that nothing is active: some leave the number of a window that is gone.
    m_events.push_back(m_connection.onEvent(XCB_DESTROY_NOTIFY, [this](const auto& event) {
        windowIsGone(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
    }));
    // What was gone before it could be listened to answers with an error, which comes in its place
    // among the events.
    m_events.push_back(m_connection.onEvent(errorEvent, [this](const auto& event) {
        const auto& error = reinterpret_cast<const xcb_generic_error_t&>(event);
        if (error.error_code == XCB_WINDOW)
            windowIsGone(error.resource_id);
    }));
}

void X11Workspace::focusCame(const xcb_focus_in_event_t& focus)
{
    if (!isLent(focus) && !isPointers(focus) && m_listenedTo.contains(focus.event))
        setFront(focus.event);
}

void X11Workspace::focusLeft(const xcb_focus_out_event_t& focus)
{
    const bool isInside = focus.detail == XCB_NOTIFY_DETAIL_INFERIOR;
    if (m_front && m_front->window == focus.event && !isLent(focus) && !isPointers(focus)
        && !isInside)
        m_front->hasKeyboard = false;
}

void X11Workspace::windowIsGone(xcb_window_t window)
{
    m_listenedTo.erase(window);
    if (m_front && m_front->window == window)
        m_front.reset();
}

void X11Workspace::listenToWindows()
{
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_FOCUS_CHANGE;
    for (const auto window :
        readNumbers(m_connection, m_connection.root(), m_clientList, XCB_ATOM_WINDOW)) {
        if (m_isOwnWindow(window) || !m_listenedTo.insert(window).second)
            continue;
        xcb_change_window_attributes(m_connection.get(), window, XCB_CW_EVENT_MASK, &events);
    }
    m_connection.flush();
}

void X11Workspace::activeWindowChanged()
{
    const auto window
        = readNumber(m_connection, m_connection.root(), m_activeWindow, XCB_ATOM_WINDOW);
    // What was read is what it is now, which a later event will tell in its place.
    m_hasMissedChange = isChangeWaiting();
    if (m_hasMissedChange)
        return;
    // A panel that has taken the keyboard unknown to the manager, which then says that nothing is
    // active, leaves the application behind it the one that the user works in.
    if (window == XCB_NONE && haveKeyboard())
        return;
    if (window == XCB_NONE || m_isOwnWindow(window))
        m_front.reset();
    else
        setFront(window);
}

bool X11Workspace::isChangeWaiting()
{
    return m_connection.hasArrived([this](const xcb_generic_event_t& event) {
        if ((event.response_type & 0x7F) != XCB_PROPERTY_NOTIFY)
            return false;
        const auto& changed = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        return changed.window == m_connection.root() && changed.atom == m_activeWindow;
    });
}

void X11Workspace::setFront(xcb_window_t window)
{
    // Listened to before its properties are read, so that its end cannot fall in between. A window
    // that is not in the manager's list is listened to for its end alone.
    if (!m_listenedTo.contains(window)) {
        const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection.get(), window, XCB_CW_EVENT_MASK, &events);
    }
    auto hints = readWindowHints(m_connection, window);
    if (!hints && m_front && m_front->window == window)
        hints = std::move(m_front->hints); // gone just now: known by what it was
    m_front = Front { window, std::move(hints) };
    m_hasMissedChange = false;
}

bool X11Workspace::haveKeyboard()
{
    const auto focus
        = m_connection.reply(xcb_get_input_focus_reply, xcb_get_input_focus(m_connection.get()));
    return focus && m_isOwnWindow(focus->focus);
}

// Managers tell of one window more than once: as long as it has the keyboard, nothing was missed.
bool X11Workspace::isFrontUnknown() const
{
    return (m_hasMissedChange && !(m_front && m_front->hasKeyboard))
        || (m_front && !m_front->hints);
}

const WindowHints* X11Workspace::frontHints()
{
    if (!m_front)
        return nullptr;
    // Its properties may have been set late. Where the window is gone, of which we have not been told
    // yet, it is known by what it was.
    if (auto hints = readWindowHints(m_connection, m_front->window))
        m_front->hints = std::move(hints);
    return m_front->hints ? &*m_front->hints : nullptr;
}

std::optional<RunningApplication> X11Workspace::frontmost()
{
    RunningApplication application;
    application.isKnown = !isFrontUnknown();
    if (!application.isKnown)
        return application;
    const auto* inFront = frontHints();
    if (inFront == nullptr)
        return std::nullopt;

    application
        = applicationBehind(inFront->program, m_entries.find(inFront->program), inFront->title);
    application.window = m_front->window;
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
    wish.type = m_activeWindow;
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
    const auto* inFront = frontHints();
    if (inFront == nullptr)
        return false;
    return isTerminal(inFront->program, m_entries.find(inFront->program));
}

} // namespace korvane
