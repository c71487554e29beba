#include "platform/x11/X11Focus.h"

#include "platform/x11/X11Connection.h"

#include <utility>

namespace korvane {

X11Focus::X11Focus(X11Connection& connection, std::function<bool(xcb_window_t)> isOwnWindow)
    : m_connection(connection)
    , m_isOwnWindow(std::move(isOwnWindow))
{
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
    const auto before = holder();
    if (before.isKnown && !m_isOwnWindow(before.window))
        m_before = before;
    if (!give(window, XCB_INPUT_FOCUS_PARENT, time))
        return false;
    if (holder().window == window)
        return true;
    // The server passes over a time before the last change of the keyboard's holder, without an
    // error: something else took it between the key press and now. The user waits for us.
    return give(window, XCB_INPUT_FOCUS_PARENT, XCB_CURRENT_TIME) && holder().window == window;
}

void X11Focus::giveBackKeyboard()
{
    const auto before = std::exchange(m_before, {});
    const auto now = holder();
    // A hidden window of ours has left the keyboard to the root window or to nobody.
    const bool isOurs = m_isOwnWindow(now.window) || now.window == m_connection.root()
        || now.window == XCB_NONE || now.window == XCB_INPUT_FOCUS_POINTER_ROOT;
    if (!before.isKnown || !isOurs)
        return;
    if (!give(before.window, XCB_INPUT_FOCUS_PARENT, XCB_CURRENT_TIME))
        // Whoever had it is gone or hidden: the window under the pointer is better than none.
        static_cast<void>(
            give(XCB_INPUT_FOCUS_POINTER_ROOT, XCB_INPUT_FOCUS_POINTER_ROOT, XCB_CURRENT_TIME));
}

} // namespace korvane
