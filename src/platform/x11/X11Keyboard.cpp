#include "platform/x11/X11Keyboard.h"

#include "platform/x11/KeyMap.h"
#include "platform/x11/X11RawInput.h"

#include <xcb/xtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>

// The header of the keyboard extension names a field "explicit", which C++ keeps for itself.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

#include <span>
#include <utility>

namespace korvane {

namespace {

    constexpr KeyCode insertKey = 114;

    // The one place that knows that Ctrl is this desktop's Command: the two change places.
    constexpr ModifierMask withCommandAsCtrl(ModifierMask mask)
    {
        ModifierMask swapped = mask & ~(modifiers::command | modifiers::control);
        if ((mask & modifiers::command) != 0)
            swapped |= modifiers::control;
        if ((mask & modifiers::control) != 0)
            swapped |= modifiers::command;
        return swapped;
    }

} // namespace

X11Keyboard::X11Keyboard(
    X11Connection& connection, KeyMap& keyMap, X11RawInput& rawInput, Terminals terminals)
    : m_connection(connection)
    , m_keyMap(keyMap)
    , m_rawInput(rawInput)
    , m_terminals(std::move(terminals))
{
}

void X11Keyboard::typeChord(KeyCode keyCode, ModifierMask modifiers)
{
    const bool isPaste = keyCode == keycodes::v && modifiers == modifiers::command;
    if (isPaste && m_terminals.isInFront()) {
        m_terminals.takePrimary();
        auto key = m_keyMap.keyTyping(XKB_KEY_Insert, currentLayout());
        if (!key)
            key = m_keyMap.keyAt(insertKey);
        if (key)
            typeKey(*key, XCB_MOD_MASK_SHIFT);
        return;
    }

    auto key = m_keyMap.keyAt(keyCode);
    if (isPaste) {
        // The target looks for the letter, so it is the letter that counts and not the position.
        if (const auto letter = m_keyMap.keyTyping(XKB_KEY_v, currentLayout()))
            key = letter;
    }
    if (key)
        typeKey(*key, m_keyMap.stateBits(withCommandAsCtrl(modifiers)));
}

void X11Keyboard::typeKey(xcb_keycode_t key, std::uint16_t stateBits)
{
    if (!m_connection.extension(&xcb_test_id))
        return;
    letGoOfHeldModifiers();
    std::vector<xcb_keycode_t> modifierKeys;
    for (unsigned int bit = 1; bit <= 0x80; bit <<= 1U) {
        const auto keys = m_keyMap.keysSetting(static_cast<std::uint16_t>(stateBits & bit));
        if (!keys.empty())
            modifierKeys.push_back(keys.front());
    }
    for (const auto modifier : modifierKeys)
        fake(XCB_KEY_PRESS, modifier);
    fake(XCB_KEY_PRESS, key);
    fake(XCB_KEY_RELEASE, key);
    for (const auto modifier : modifierKeys)
        fake(XCB_KEY_RELEASE, modifier);
    m_connection.flush();
}

// What the user holds would change the chord. It is not pressed again afterwards, deliberately: a key
// that the user lets go in between would then stay down for ever.
void X11Keyboard::letGoOfHeldModifiers()
{
    const auto held
        = m_connection.reply(xcb_query_keymap_reply, xcb_query_keymap(m_connection.get()));
    if (!held)
        return;
    const std::span bitmap(held->keys);
    // The lock keys change no chord while they are held; to let them go would toggle them.
    const auto locks = XCB_MOD_MASK_LOCK | m_keyMap.numLockBit();
    for (const auto key : m_keyMap.keysSetting(static_cast<std::uint16_t>(0xFF & ~locks)))
        if ((bitmap[key / 8U] & (1U << (key % 8U))) != 0)
            fake(XCB_KEY_RELEASE, key);
}

void X11Keyboard::fake(std::uint8_t type, xcb_keycode_t key)
{
    xcb_test_fake_input(
        m_connection.get(), type, key, XCB_CURRENT_TIME, m_connection.root(), 0, 0, 0);
}

std::uint8_t X11Keyboard::currentLayout()
{
    const auto state = m_connection.reply(
        xcb_xkb_get_state_reply, xcb_xkb_get_state(m_connection.get(), XCB_XKB_ID_USE_CORE_KBD));
    return state ? state->group : std::uint8_t { 0 };
}

bool X11Keyboard::listen()
{
    if (!m_rawInput.isAvailable() || !m_connection.extension(&xcb_xkb_id))
        return false;
    followState();
    m_connections[0]
        = m_rawInput.keyPressed.connect([this](const xcb_keycode_t& key) { keyPressed(key); });
    m_rawInput.tellKeys(true);
    return true;
}

// A raw event does not say which modifiers are in force. To ask for them when it comes would be too
// late for a chord that a program types: all its keys are up again by then. So the changes of state
// are heard in the same stream of events, in which they stand in their right places.
void X11Keyboard::followState()
{
    constexpr std::uint16_t parts
        = XCB_XKB_STATE_PART_MODIFIER_STATE | XCB_XKB_STATE_PART_GROUP_STATE;
    xcb_xkb_select_events_details_t details {};
    details.affectState = parts;
    details.stateDetails = parts;
    xcb_xkb_select_events_aux(m_connection.get(), XCB_XKB_ID_USE_CORE_KBD,
        XCB_XKB_EVENT_TYPE_STATE_NOTIFY, 0, 0, 0, 0, &details);
    m_connections[1] = m_connection.onEvent(
        m_connection.extension(&xcb_xkb_id)->firstEvent, [this](const xcb_generic_event_t& event) {
            if (event.pad0 != XCB_XKB_STATE_NOTIFY)
                return;
            const auto& state = reinterpret_cast<const xcb_xkb_state_notify_event_t&>(event);
            m_state = state.mods;
            m_layout = state.group;
        });
    const auto now = m_connection.reply(
        xcb_xkb_get_state_reply, xcb_xkb_get_state(m_connection.get(), XCB_XKB_ID_USE_CORE_KBD));
    if (now) {
        m_state = now->mods;
        m_layout = now->group;
    }
}

std::optional<KeyCode> X11Keyboard::keyCodeOf(xcb_keycode_t key)
{
    const auto position = m_keyMap.positionOf(key);
    if (m_keyMap.types(key, XKB_KEY_v, m_layout))
        return keycodes::v;
    if (position != keycodes::v)
        return position;
    // Where another key types the letter, that one pastes and this one does not: they change places.
    const auto letter = m_keyMap.keyTyping(XKB_KEY_v, m_layout);
    return letter && m_keyMap.types(*letter, XKB_KEY_v, m_layout) ? m_keyMap.positionOf(*letter)
                                                                  : position;
}

void X11Keyboard::keyPressed(xcb_keycode_t key)
{
    const auto keyCode = keyCodeOf(key);
    if (!keyCode)
        return;
    const auto mask = m_keyMap.modifiersIn(m_state);
    if (mask == modifiers::shift && m_keyMap.types(key, XKB_KEY_Insert, m_layout)
        && m_terminals.isInFront()) {
        keyDown(KeyPress { keycodes::v, modifiers::command, {} }); // a terminal's paste chord
        return;
    }
    keyDown(KeyPress { *keyCode, withCommandAsCtrl(mask), {} });
}

} // namespace korvane
