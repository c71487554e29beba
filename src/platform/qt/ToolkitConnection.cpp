#include "platform/qt/ToolkitConnection.h"

#include "platform/x11/X11Connection.h"

#include <QGuiApplication>

namespace korvane {

xcb_connection_t* toolkitConnection()
{
    const auto* native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return native == nullptr ? nullptr : native->connection();
}

void awaitToolkitRequests()
{
    if (auto* const toolkit = toolkitConnection()) {
        const X11Reply<xcb_get_input_focus_reply_t> answer(
            xcb_get_input_focus_reply(toolkit, xcb_get_input_focus(toolkit), nullptr));
    }
}

} // namespace korvane
