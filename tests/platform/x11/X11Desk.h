#pragma once

#include "platform/qt/QtMainLoop.h"
#include "platform/x11/KeyMap.h"
#include "platform/x11/X11Connection.h"
#include "support/EventLoop.h"
#include "support/TestInput.h"
#include "support/TestWindow.h"

#include <xcb/xcb.h>

#include <string_view>

namespace korvane::test {

/// What every test of the desktop's X side stands on: the program's connection, and a user with
/// hands and with windows of other programs.
struct X11Desk {
    QtMainLoop loop;
    X11Connection connection { loop };
    KeyMap keyMap { connection, loop };
    TestInput input;
    TestClient otherProgram;

    /// Delivers every event that the server has sent until now.
    void deliverEvents()
    {
        input.client().sync();
        const auto marker = connection.atom("KORVANE_TEST_MARKER");
        bool hasArrived = false;
        const auto slot = connection.onEvent(XCB_CLIENT_MESSAGE, [&](const auto& event) {
            hasArrived = hasArrived
                || reinterpret_cast<const xcb_client_message_event_t&>(event).type == marker;
        });
        xcb_client_message_event_t message {};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.type = marker;
        // With no event mask the message goes to whoever made the window: to us.
        const auto window = xcb_generate_id(connection.get());
        xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, window, connection.root(), 0, 0,
            1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_send_event(connection.get(), 0, window, XCB_EVENT_MASK_NO_EVENT,
            reinterpret_cast<const char*>(&message));
        xcb_destroy_window(connection.get(), window);
        connection.flush();
        waitUntil([&] { return hasArrived; });
    }

    /// Puts the window on the screen and waits until it has the keyboard, and we have been told.
    bool bringToFront(TestWindow& window)
    {
        window.map();
        const bool isInFront = waitUntil([&] { return window.isActive() && window.hasKeyboard(); });
        deliverEvents();
        return isInFront;
    }

    /// Takes the pointer for the other program, as an open menu does, and keeps it until the desk
    /// goes. The window manager may hold it still, for a click of a moment ago: it is taken as soon
    /// as nobody else does.
    bool holdPointer() const
    {
        return waitUntil([this] {
            const X11Reply<xcb_grab_pointer_reply_t> grab(xcb_grab_pointer_reply(otherProgram.get(),
                xcb_grab_pointer(otherProgram.get(), 0, otherProgram.root(),
                    XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC, XCB_NONE,
                    XCB_NONE, XCB_CURRENT_TIME),
                nullptr));
            return grab && grab->status == XCB_GRAB_STATUS_SUCCESS;
        });
    }
    /// The same for the keyboard.
    bool holdKeyboard() const
    {
        return waitUntil([this] {
            const X11Reply<xcb_grab_keyboard_reply_t> grab(
                xcb_grab_keyboard_reply(otherProgram.get(),
                    xcb_grab_keyboard(otherProgram.get(), 0, otherProgram.root(), XCB_CURRENT_TIME,
                        XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                    nullptr));
            return grab && grab->status == XCB_GRAB_STATUS_SUCCESS;
        });
    }
};

} // namespace korvane::test
