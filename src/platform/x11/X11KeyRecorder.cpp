#include "platform/x11/X11KeyRecorder.h"

#include "platform/x11/FocusEvents.h"
#include "platform/x11/KeyMap.h"
#include "platform/x11/KeySymbols.h"

#include <algorithm>
#include <chrono>
#include <initializer_list>
#include <span>
#include <utility>

namespace korvane {

namespace {

    // Nobody holds a key longer than this after a recording: it is stuck, and must not cost the user
    // the keyboard.
    constexpr std::chrono::milliseconds longestHold { 2000 };

    // While we have the keyboard, no screen can be locked.
    constexpr std::chrono::seconds longestWait { 30 };

    // Where the layout stands in the state of a key event (X Keyboard Extension, 2.2.2).
    std::uint8_t layoutIn(std::uint16_t state)
    {
        return static_cast<std::uint8_t>((state >> 13U) & 3U);
    }

} // namespace

X11KeyRecorder::X11KeyRecorder(X11Connection& connection, KeyMap& keyMap, MainLoop& loop)
    : m_connection(connection)
    , m_keyMap(keyMap)
    , m_loop(loop)
{
    m_connections = {
        m_connection.onEvent(XCB_KEY_PRESS,
            [this](const auto& event) {
                keyPressed(reinterpret_cast<const xcb_key_press_event_t&>(event));
            }),
        m_connection.onEvent(XCB_KEY_RELEASE,
            [this](const auto& event) {
                keyReleased(reinterpret_cast<const xcb_key_release_event_t&>(event));
            }),
        m_connection.onEvent(XCB_FOCUS_IN,
            [this](const auto& event) {
                focusCame(reinterpret_cast<const xcb_focus_in_event_t&>(event));
            }),
        m_connection.onEvent(XCB_FOCUS_OUT,
            [this](const auto& event) {
                focusLeft(reinterpret_cast<const xcb_focus_out_event_t&>(event));
            }),
    };
}

X11KeyRecorder::~X11KeyRecorder()
{
    stop();
    letGo();
    if (m_listener != XCB_NONE)
        xcb_destroy_window(m_connection.get(), m_listener);
    m_connection.flush();
}

bool X11KeyRecorder::start(std::uint64_t window)
{
    stop();
    m_ending.stop();
    m_window = static_cast<xcb_window_t>(window);
    listenToFocus(XCB_EVENT_MASK_FOCUS_CHANGE);
    if (m_hasKeyboard)
        awaitKey();
    return m_hasKeyboard || take();
}

void X11KeyRecorder::stop()
{
    if (m_window == XCB_NONE)
        return;
    m_patience.stop();
    listenToFocus(XCB_EVENT_MASK_NO_EVENT);
    m_window = XCB_NONE;
    if (m_held.empty())
        letGo();
    else if (m_hasKeyboard) // a key that repeats would press the new shortcut, or close the window
        m_ending = m_loop.after(longestHold, [this] { letGo(); });
}

void X11KeyRecorder::listenToFocus(std::uint32_t events)
{
    xcb_change_window_attributes(m_connection.get(), m_window, XCB_CW_EVENT_MASK, &events);
    m_connection.flush();
}

// The server gives the keyboard only for a window that is on the screen: this one is, beyond its edge.
void X11KeyRecorder::makeListener()
{
    if (m_listener != XCB_NONE)
        return;
    m_listener = xcb_generate_id(m_connection.get());
    const std::uint32_t isOverride = 1;
    xcb_create_window(m_connection.get(), XCB_COPY_FROM_PARENT, m_listener, m_connection.root(), -1,
        -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT,
        &isOverride);
    xcb_map_window(m_connection.get(), m_listener);
}

bool X11KeyRecorder::take()
{
    if (!m_connection.isOpen())
        return false;
    makeListener();
    const auto grab = m_connection.reply(xcb_grab_keyboard_reply,
        xcb_grab_keyboard(m_connection.get(), 0, m_listener, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC,
            XCB_GRAB_MODE_ASYNC));
    m_hasKeyboard = grab && grab->status == XCB_GRAB_STATUS_SUCCESS;
    if (!m_hasKeyboard)
        return false;
    // What is down already, such as the key that the field was chosen with, may go on repeating.
    const auto down
        = m_connection.reply(xcb_query_keymap_reply, xcb_query_keymap(m_connection.get()));
    const auto bits
        = down ? std::span<const std::uint8_t>(down->keys) : std::span<const std::uint8_t>();
    for (unsigned int key = 0; key < 8 * bits.size(); ++key)
        if ((bits[key / 8U] & (1U << (key % 8U))) != 0
            && !isModifier(static_cast<xcb_keycode_t>(key)))
            m_held.insert(static_cast<xcb_keycode_t>(key));
    awaitKey();
    return true;
}

void X11KeyRecorder::awaitKey()
{
    m_patience = m_loop.after(longestWait, [this] { giveUp(); });
}

// A key that is held all that time is not waited for: something lies on the keyboard.
void X11KeyRecorder::giveUp()
{
    m_held.clear();
    stop();
    gaveUp();
}

void X11KeyRecorder::letGo()
{
    m_ending.stop();
    m_patience.stop();
    m_held.clear();
    if (!std::exchange(m_hasKeyboard, false))
        return;
    xcb_ungrab_keyboard(m_connection.get(), XCB_CURRENT_TIME);
    m_connection.flush();
}

void X11KeyRecorder::beep()
{
    xcb_bell(m_connection.get(), 0);
    m_connection.flush();
}

bool X11KeyRecorder::isModifier(xcb_keycode_t key)
{
    const auto modifiers = m_keyMap.keysSetting(0xFF);
    return std::ranges::find(modifiers, key) != modifiers.end()
        || isModifierSymbol(m_keyMap.symbolOf(key, 0, 0));
}

// Shift alone is looked at, as for what is printed on the key. The keypad's digits are there with Num
// Lock only; Shift would take them away again.
std::string X11KeyRecorder::charactersOf(xcb_keycode_t key, std::uint16_t state)
{
    const auto numLock = m_keyMap.numLockBit();
    const auto withShift = static_cast<std::uint16_t>(numLock | (state & XCB_MOD_MASK_SHIFT));
    for (const auto bits : { withShift, numLock })
        if (auto text = textOf(m_keyMap.symbolOf(key, layoutIn(state), bits)); !text.empty())
            return text;
    return {};
}

void X11KeyRecorder::tell(xcb_keycode_t key, std::uint16_t state)
{
    if (const auto position = m_keyMap.positionOf(key))
        keyDown({ *position, m_keyMap.modifiersIn(state), charactersOf(key, state) });
    else
        unnamedKeyDown();
}

void X11KeyRecorder::windowKeyPressed(std::uint32_t key, std::uint32_t state)
{
    if (m_window == XCB_NONE || m_hasKeyboard || key > 255)
        return;
    const auto code = static_cast<xcb_keycode_t>(key);
    if (!isModifier(code))
        tell(code, static_cast<std::uint16_t>(state));
}

void X11KeyRecorder::keyPressed(const xcb_key_press_event_t& event)
{
    if (event.event != m_listener || m_listener == XCB_NONE)
        return;
    const bool isNew = isModifier(event.detail) || m_held.insert(event.detail).second;
    if (isNew && m_window != XCB_NONE && m_hasKeyboard)
        awaitKey();
    if (isNew && m_window != XCB_NONE && !isModifier(event.detail))
        tell(event.detail, event.state);
}

void X11KeyRecorder::keyReleased(const xcb_key_release_event_t& event)
{
    if (m_held.erase(event.detail) != 0 && m_held.empty() && m_window == XCB_NONE)
        letGo();
}

void X11KeyRecorder::focusCame(const xcb_focus_in_event_t& event)
{
    if (m_window != XCB_NONE && event.event == m_window && event.mode != XCB_NOTIFY_MODE_GRAB
        && !isPointers(event) && !m_hasKeyboard)
        static_cast<void>(take()); // else the next coming may do better
}

void X11KeyRecorder::focusLeft(const xcb_focus_out_event_t& event)
{
    const bool isInside = event.detail == XCB_NOTIFY_DETAIL_INFERIOR;
    if (m_window != XCB_NONE && event.event == m_window && !isInside && !isLent(event)
        && !isPointers(event))
        letGo();
}

} // namespace korvane
