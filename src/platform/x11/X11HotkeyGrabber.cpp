#include "platform/x11/X11HotkeyGrabber.h"

#include "platform/x11/KeyMap.h"

#include <utility>

namespace korvane {

X11HotkeyGrabber::X11HotkeyGrabber(X11Connection& connection, KeyMap& keyMap)
    : m_connection(connection)
    , m_keyMap(keyMap)
{
    m_connections = {
        m_connection.onEvent(XCB_KEY_PRESS,
            [this](const xcb_generic_event_t& event) {
                keyPressed(reinterpret_cast<const xcb_key_press_event_t&>(event));
            }),
        m_connection.onEvent(XCB_KEY_RELEASE,
            [this](const xcb_generic_event_t& event) {
                keyReleased(reinterpret_cast<const xcb_key_release_event_t&>(event));
            }),
        m_keyMap.changed.connect([this] { followKeyMap(); }),
    };
}

X11HotkeyGrabber::~X11HotkeyGrabber()
{
    release();
}

bool X11HotkeyGrabber::grab(KeyCode keyCode, ModifierMask modifiers)
{
    release();
    const Chord chord { keyCode, modifiers };
    const auto wanted = resolve(chord);
    if (!wanted || !take(*wanted))
        return false;
    m_chord = chord;
    return true;
}

void X11HotkeyGrabber::release()
{
    letGo();
    m_chord.reset();
}

std::optional<X11HotkeyGrabber::Grab> X11HotkeyGrabber::resolve(Chord chord)
{
    const auto key = m_keyMap.keyAt(chord.keyCode);
    if (!key)
        return std::nullopt;
    const unsigned int bits = m_keyMap.stateBits(chord.modifiers);
    const unsigned int numLock = m_keyMap.numLockBit();
    const auto with
        = [bits](unsigned int locks) { return static_cast<std::uint16_t>(bits | locks); };
    return Grab { *key,
        { with(0), with(XCB_MOD_MASK_LOCK), with(numLock), with(XCB_MOD_MASK_LOCK | numLock) } };
}

bool X11HotkeyGrabber::take(const Grab& wanted)
{
    // All requests go out before the first answer is awaited: one round trip instead of four.
    std::array<xcb_void_cookie_t, 4> cookies {};
    for (std::size_t i = 0; i < cookies.size(); ++i)
        cookies.at(i) = xcb_grab_key_checked(m_connection.get(), 0, m_connection.root(),
            wanted.states.at(i), wanted.key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    bool isWhole = true;
    for (const auto cookie : cookies)
        isWhole = m_connection.succeeded(cookie) && isWhole;
    m_grab = wanted;
    if (!isWhole)
        letGo(); // a shortcut that depends on Num Lock would be worse than none
    return isWhole;
}

void X11HotkeyGrabber::letGo()
{
    m_heldKey.reset();
    const auto grab = std::exchange(m_grab, std::nullopt);
    if (!grab)
        return;
    for (const auto state : grab->states)
        xcb_ungrab_key(m_connection.get(), grab->key, m_connection.root(), state);
    m_connection.flush();
}

void X11HotkeyGrabber::followKeyMap()
{
    if (!m_chord)
        return;
    const auto wanted = resolve(*m_chord);
    if (wanted == m_grab)
        return;
    letGo();
    // A key that is gone, or taken on the new layout, may come back with the next change: the chord
    // stays wanted.
    if (wanted)
        static_cast<void>(take(*wanted));
}

void X11HotkeyGrabber::keyPressed(const xcb_key_press_event_t& event)
{
    // A press that comes to a window of ours was not taken by the grab.
    if (event.event != m_connection.root())
        return;
    if (!m_grab || event.detail != m_grab->key || m_heldKey == event.detail)
        return;
    m_heldKey = event.detail;
    m_lastPressTime = event.time;
    pressed();
}

void X11HotkeyGrabber::keyReleased(const xcb_key_release_event_t& event)
{
    if (m_heldKey == event.detail)
        m_heldKey.reset();
}

} // namespace korvane
