#include "platform/x11/X11Focus.h"

#include "platform/x11/WindowHints.h"
#include "platform/x11/X11Connection.h"

#include <utility>

namespace korvane {

namespace {
    // No user moves the pointer over so many windows; two programs that both insist get here at once.
    constexpr int maxReturns = 100;
    // Window managers end to listen first and hand the keyboard over then, in the same breath.
    constexpr std::chrono::milliseconds breath { 200 };
} // namespace

X11Focus::X11Focus(
    X11Connection& connection, MainLoop& loop, std::function<bool(xcb_window_t)> isOwnWindow)
    : m_connection(connection)
    , m_loop(loop)
    , m_isOwnWindow(std::move(isOwnWindow))
    , m_activeWindow(connection.atom("_NET_ACTIVE_WINDOW"))
    , m_focusOut(connection.onEvent(XCB_FOCUS_OUT,
          [this](
              const auto& event) { lost(reinterpret_cast<const xcb_focus_out_event_t&>(event)); }))
    , m_focusIn(connection.onEvent(XCB_FOCUS_IN,
          [this](const auto& event) { got(reinterpret_cast<const xcb_focus_in_event_t&>(event)); }))
    , m_propertyChanged(connection.onEvent(XCB_PROPERTY_NOTIFY,
          [this](const auto& event) {
              const auto& changed = reinterpret_cast<const xcb_property_notify_event_t&>(event);
              if (changed.window == m_connection.root() && changed.atom == m_activeWindow)
                  activeWindowChanged();
          }))
    , m_unmapped(connection.onEvent(XCB_UNMAP_NOTIFY, [this](const auto& event) {
        if (reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window == m_going)
            letPointerGo();
    }))
{
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(connection.get(), connection.root(), XCB_CW_EVENT_MASK, &events);
    connection.flush();
}

void X11Focus::hold(xcb_window_t window)
{
    m_held = window;
    m_returns = 0;
    m_isLent = false;
    const std::uint32_t events = XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection.get(), window, XCB_CW_EVENT_MASK, &events);
    m_connection.flush();
}

void X11Focus::passTo(xcb_window_t window)
{
    if (m_held == XCB_NONE)
        return;
    m_next = window;
    m_passing = m_loop.after(breath, [this] { m_passing.stop(); });
}

void X11Focus::lost(const xcb_focus_out_event_t& event)
{
    if (event.event != m_held)
        return;
    if (event.mode == XCB_NOTIFY_MODE_GRAB) {
        m_isLent = true;
        m_lentUntil.stop();
        return;
    }
    const auto now = holder();
    if (!now.isKnown || m_isOwnWindow(now.window))
        return;
    // The manager means the keyboard to be there, and there it goes when we give it up.
    m_before = now;
    if (!m_isLent && ++m_returns <= maxReturns
        && give(m_held, XCB_INPUT_FOCUS_PARENT, XCB_CURRENT_TIME))
        return;
    m_held = XCB_NONE;
    left();
}

void X11Focus::got(const xcb_focus_in_event_t& event)
{
    if (event.event == m_held && event.mode == XCB_NOTIFY_MODE_UNGRAB)
        m_lentUntil = m_loop.after(breath, [this] { m_isLent = false; });
}

/// A manager that hands the keyboard over at the time of what it has seen last (i3) is passed over by the
/// server, as our window has taken it later, unknown to the manager: the other window would be the active
/// one, and deaf.
void X11Focus::activeWindowChanged()
{
    if (m_next == XCB_NONE
        || readNumber(m_connection, m_connection.root(), m_activeWindow, XCB_ATOM_WINDOW) != m_next)
        return;
    const auto next = std::exchange(m_next, XCB_NONE);
    if (m_held != XCB_NONE && holder().window == m_held)
        static_cast<void>(give(next, XCB_INPUT_FOCUS_PARENT, XCB_CURRENT_TIME));
}

X11Focus::Holder X11Focus::holder()
{
    const auto focus
        = m_connection.reply(xcb_get_input_focus_reply, xcb_get_input_focus(m_connection.get()));
    return focus ? Holder { focus->focus, true } : Holder {};
}

bool X11Focus::give(xcb_window_t window, std::uint8_t revertTo, xcb_timestamp_t time)
{
    return m_connection.succeeded(
        xcb_set_input_focus_checked(m_connection.get(), revertTo, window, time));
}

bool X11Focus::takeKeyboard(xcb_window_t window, xcb_timestamp_t time)
{
    // The toolkit tells of the pointer's arrival when the menu that led there has closed: nobody has
    // come back so soon.
    if (window == m_held && m_passing.isActive())
        return true;
    m_next = XCB_NONE;
    const auto before = holder();
    if (before.isKnown && !m_isOwnWindow(before.window))
        m_before = before;
    if (!give(window, XCB_INPUT_FOCUS_PARENT, time))
        return false;
    hold(window);
    if (holder().window == window)
        return true;
    // The server passes over a time before the last change of the keyboard's holder, without an
    // error: something else took it between the key press and now. The user waits for us.
    return give(window, XCB_INPUT_FOCUS_PARENT, XCB_CURRENT_TIME) && holder().window == window;
}

/// A click outside closes the panel, and the window manager gives the keyboard to what was clicked, as of the
/// time of the click. The server passes that over if the keyboard was handed over later than that, so that a
/// manager slower than we would have a window in front that is deaf. Given back as of before the click,
/// the keyboard is the manager's to hand on.
/// @param held  who has the keyboard now
/// @return whether it has gone there
bool X11Focus::giveBackTo(xcb_window_t window, xcb_window_t held)
{
    if (m_pressedAt != XCB_CURRENT_TIME) {
        if (!give(window, XCB_INPUT_FOCUS_PARENT, m_pressedAt - 1))
            return false;
        // It was taken back from somebody after the press.
        if (holder().window != held)
            return true;
    }
    return give(window, XCB_INPUT_FOCUS_PARENT, XCB_CURRENT_TIME);
}

void X11Focus::giveBackKeyboard()
{
    const auto before = std::exchange(m_before, {});
    const auto held = std::exchange(m_held, XCB_NONE);
    m_next = XCB_NONE;
    const auto now = holder();
    // A hidden window of ours has left the keyboard to the root window or to nobody. Another window of
    // ours that the user has gone to keeps it.
    const bool isOurs = now.window == held || now.window == m_connection.root()
        || now.window == XCB_NONE || now.window == XCB_INPUT_FOCUS_POINTER_ROOT;
    if (!isOurs && held != XCB_NONE && m_isOwnWindow(now.window))
        holdPointerUntilGone(held);
    if (!before.isKnown || !isOurs)
        return;
    if (giveBackTo(before.window, now.window))
        return;
    // Whoever had it is gone or hidden. A manager that has chosen another window meanwhile believes
    // that this one has the keyboard, and would not hand it over again.
    const auto active
        = readNumber(m_connection, m_connection.root(), m_activeWindow, XCB_ATOM_WINDOW);
    const bool isGiven = active != XCB_NONE && !m_isOwnWindow(active)
        && give(active, XCB_INPUT_FOCUS_PARENT, XCB_CURRENT_TIME);
    if (!isGiven) // the window under the pointer is better than none
        static_cast<void>(
            give(XCB_INPUT_FOCUS_POINTER_ROOT, XCB_INPUT_FOCUS_POINTER_ROOT, XCB_CURRENT_TIME));
}

/// Where the focus follows the pointer (i3), the window that comes to light under it would get the keyboard
/// when the panel goes, and another window of ours that has it would lose it. As long as the pointer is held
/// it arrives nowhere, and what it arrives at by being let go does not count as an arrival.
void X11Focus::holdPointerUntilGone(xcb_window_t window)
{
    const auto grab = m_connection.reply(xcb_grab_pointer_reply,
        xcb_grab_pointer(m_connection.get(), 0, m_connection.root(), 0, XCB_GRAB_MODE_ASYNC,
            XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME));
    if (!grab || grab->status != XCB_GRAB_STATUS_SUCCESS)
        return; // a button is held in another program, which the user has gone to
    m_going = window;
    m_pointerHeld = m_loop.after(breath, [this] { letPointerGo(); });
}

void X11Focus::letPointerGo()
{
    m_going = XCB_NONE;
    m_pointerHeld.stop();
    xcb_ungrab_pointer(m_connection.get(), XCB_CURRENT_TIME);
    m_connection.flush();
}

} // namespace korvane
