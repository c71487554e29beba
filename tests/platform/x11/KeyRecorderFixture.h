#pragma once

#include "X11Desk.h"
#include "platform/x11/X11KeyRecorder.h"
#include "support/ManualLoop.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace korvane::test {

inline constexpr xcb_keycode_t keyA = 38;

/// A recorder for a window of ours, on a desk where another program has keys of its own.
struct KeyRecorderFixture : X11Desk {
    ManualLoop clock;
    TestWindow window { otherProgram };
    std::unique_ptr<X11KeyRecorder> recorder
        = std::make_unique<X11KeyRecorder>(connection, keyMap, clock);
    std::vector<KeyPress> heard;
    int unnamed = 0;
    std::array<Connection, 2> connections {
        recorder->keyDown.connect([this](const KeyPress& press) { heard.push_back(press); }),
        recorder->unnamedKeyDown.connect([this] { ++unnamed; }),
    };

    bool start()
    {
        if (!bringToFront(window))
            return false;
        window.takeKeys();
        return recorder->start(window.id());
    }
    /// Types a chord and delivers what comes of it.
    void type(const std::vector<xcb_keycode_t>& chord)
    {
        input.chord(chord);
        deliverEvents();
    }
    /// What the only key press that was heard is said to type.
    std::string typed(const std::vector<xcb_keycode_t>& chord)
    {
        heard.clear();
        type(chord);
        return heard.size() == 1 ? heard[0].characters : "(not one key press)";
    }
    /// Could another program have the keyboard?
    bool isKeyboardFree()
    {
        const X11Reply<xcb_grab_keyboard_reply_t> grab(xcb_grab_keyboard_reply(otherProgram.get(),
            xcb_grab_keyboard(otherProgram.get(), 0, otherProgram.root(), XCB_CURRENT_TIME,
                XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
            nullptr));
        if (!grab || grab->status != XCB_GRAB_STATUS_SUCCESS)
            return false;
        xcb_ungrab_keyboard(otherProgram.get(), XCB_CURRENT_TIME);
        otherProgram.sync();
        return true;
    }
    /// How often the other program's bindings have acted since this was last asked.
    int takeBindings()
    {
        int count = 0;
        while (const auto event = X11Event(xcb_poll_for_event(otherProgram.get())))
            if ((event->response_type & 0x7F) == XCB_KEY_PRESS
                && reinterpret_cast<const xcb_key_press_event_t&>(*event).event
                    == otherProgram.root())
                ++count;
        return count;
    }
    void giveKeyboardTo(TestWindow& other)
    {
        xcb_set_input_focus(
            otherProgram.get(), XCB_INPUT_FOCUS_PARENT, other.id(), XCB_CURRENT_TIME);
        otherProgram.sync();
    }
};

} // namespace korvane::test
