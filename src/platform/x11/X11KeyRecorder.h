#pragma once

#include "hotkey/KeyRecorder.h"
#include "model/MainLoop.h"
#include "platform/x11/X11Connection.h"

#include <array>
#include <set>
#include <string>

namespace korvane {

class KeyMap;

/// Takes the whole keyboard from the server (GrabKeyboard of the core protocol), so that neither the
/// window manager's bindings nor our own shortcut see what is pressed.
///
/// The keyboard is ours only as long as the window that it is taken for has it by rights: whoever
/// clicks into another program types there.
class X11KeyRecorder : public KeyRecorder {
public:
    X11KeyRecorder(X11Connection& connection, KeyMap& keyMap, MainLoop& loop);
    /// Gives the keyboard back.
    ~X11KeyRecorder() override;
    X11KeyRecorder(const X11KeyRecorder&) = delete;
    X11KeyRecorder& operator=(const X11KeyRecorder&) = delete;

    bool start(std::uint64_t window) override;
    void stop() override;
    /// @param key    a key code of the server
    /// @param state  the state field of the server's key event
    void windowKeyPressed(std::uint32_t key, std::uint32_t state) override;
    void beep() override;

    /// Whether no other client can have the keyboard now.
    bool hasKeyboard() const { return m_hasKeyboard; }

private:
    void makeListener();
    void listenToFocus(std::uint32_t events);
    bool take();
    void letGo();
    void awaitKey();
    void giveUp();
    bool isModifier(xcb_keycode_t key);
    std::string charactersOf(xcb_keycode_t key, std::uint16_t state);
    void tell(xcb_keycode_t key, std::uint16_t state);
    void keyPressed(const xcb_key_press_event_t& event);
    void keyReleased(const xcb_key_release_event_t& event);
    void focusCame(const xcb_focus_in_event_t& event);
    void focusLeft(const xcb_focus_out_event_t& event);

    X11Connection& m_connection;
    KeyMap& m_keyMap;
    MainLoop& m_loop;
    /// A window of no size that the events of the taken keyboard name.
    xcb_window_t m_listener = XCB_NONE;
    /// The one that the user is in, while we record; none else.
    xcb_window_t m_window = XCB_NONE;
    bool m_hasKeyboard = false;
    /// The keys that are down, without modifiers.
    std::set<xcb_keycode_t> m_held;
    Timer m_ending;
    Timer m_patience;
    std::array<Connection, 4> m_connections;
};

} // namespace korvane
