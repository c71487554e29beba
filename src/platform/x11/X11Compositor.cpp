#include "platform/x11/X11Compositor.h"

#include <xcb/xfixes.h>

namespace korvane {

X11Compositor::X11Compositor(X11Connection& connection)
    : m_connection(connection)
    , m_selection(connection.atom("_NET_WM_CM_S0"))
{
    ask();
    const auto xfixes = m_connection.extension(&xcb_xfixes_id);
    if (!xfixes)
        return;
    m_connection.reply(
        xcb_xfixes_query_version_reply, xcb_xfixes_query_version(m_connection.get(), 5, 0));
    xcb_xfixes_select_selection_input(m_connection.get(), m_connection.root(), m_selection,
        XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER
            | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY
            | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    m_connection.flush();
    m_ownerChanged = m_connection.onEvent(
        xfixes->firstEvent + XCB_XFIXES_SELECTION_NOTIFY, [this](const xcb_generic_event_t& event) {
            const auto& change
                = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
            if (change.selection == m_selection)
                m_isRunning.set(change.owner != XCB_NONE);
        });
}

void X11Compositor::ask()
{
    const auto owner = m_connection.reply(
        xcb_get_selection_owner_reply, xcb_get_selection_owner(m_connection.get(), m_selection));
    m_isRunning.set(owner && owner->owner != XCB_NONE);
}

} // namespace korvane
