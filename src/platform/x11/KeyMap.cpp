#include "platform/x11/KeyMap.h"

#include "platform/x11/KeyPositions.h"
#include "platform/x11/X11Connection.h"

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>
#include <xkbcommon/xkbcommon.h>

// The header of the keyboard extension names a field "explicit", which C++ keeps for itself.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

#include <algorithm>
#include <chrono>
#include <span>
#include <string>

namespace korvane {

namespace {

    constexpr std::uint8_t xkbTypeOf(const xcb_generic_event_t& event)
    {
        return event.pad0; // where every event of the extension carries its own type
    }

    bool hasSymbol(xkb_keymap* keymap, xcb_keycode_t key, std::uint32_t layout, std::uint32_t level,
        std::uint32_t symbol)
    {
        const xkb_keysym_t* symbols = nullptr;
        const int count = xkb_keymap_key_get_syms_by_level(keymap, key, layout, level, &symbols);
        const auto found = std::span(symbols, static_cast<std::size_t>(std::max(count, 0)));
        return std::ranges::find(found, symbol) != found.end();
    }

} // namespace

void KeyMap::Release::operator()(xkb_context* context) const
{
    xkb_context_unref(context);
}

void KeyMap::Release::operator()(xkb_keymap* keymap) const
{
    xkb_keymap_unref(keymap);
}

void KeyMap::Release::operator()(xkb_state* state) const
{
    xkb_state_unref(state);
}

KeyMap::KeyMap(X11Connection& connection, MainLoop& loop)
    : m_connection(connection)
    , m_loop(loop)
    , m_context(xkb_context_new(XKB_CONTEXT_NO_FLAGS))
{
    if (startExtension()) {
        askForDetectableRepeat();
        watch();
    }
}

KeyMap::~KeyMap() = default;

bool KeyMap::startExtension()
{
    return m_connection.isOpen()
        && xkb_x11_setup_xkb_extension(m_connection.get(), XKB_X11_MIN_MAJOR_XKB_VERSION,
               XKB_X11_MIN_MINOR_XKB_VERSION, XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr,
               nullptr, nullptr, nullptr)
        != 0;
}

// A held key repeats. Normally each repetition is a release and a press, like fingers that are
// quick; the server can leave the releases out, and then a release means a release.
void KeyMap::askForDetectableRepeat()
{
    constexpr std::uint32_t detectable = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    m_connection.reply(xcb_xkb_per_client_flags_reply,
        xcb_xkb_per_client_flags(
            m_connection.get(), XCB_XKB_ID_USE_CORE_KBD, detectable, detectable, 0, 0, 0));
}

void KeyMap::watch()
{
    const auto extension = m_connection.extension(&xcb_xkb_id);
    if (!extension)
        return;
    constexpr std::uint16_t events
        = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    constexpr std::uint16_t allParts = XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS
        | XCB_XKB_MAP_PART_MODIFIER_MAP | XCB_XKB_MAP_PART_VIRTUAL_MODS
        | XCB_XKB_MAP_PART_VIRTUAL_MOD_MAP;
    xcb_xkb_select_events(m_connection.get(), XCB_XKB_ID_USE_CORE_KBD, events, 0, events, allParts,
        allParts, nullptr);
    m_connection.flush();
    m_connections.push_back(
        m_connection.onEvent(extension->firstEvent, [this](const xcb_generic_event_t& event) {
            const auto type = xkbTypeOf(event);
            if (type == XCB_XKB_NEW_KEYBOARD_NOTIFY || type == XCB_XKB_MAP_NOTIFY)
                forget();
        }));
    // The core protocol's own notice still comes for changes that a program of the old kind makes.
    m_connections.push_back(
        m_connection.onEvent(XCB_MAPPING_NOTIFY, [this](const xcb_generic_event_t&) { forget(); }));
}

void KeyMap::forget()
{
    m_keymap.reset();
    m_isRead = false;
    if (m_tellingOfChange.isActive())
        return;
    m_tellingOfChange = m_loop.after(std::chrono::milliseconds(0), [this] {
        m_tellingOfChange.stop();
        changed();
    });
}

void KeyMap::read()
{
    // Read once, whatever came of it, until the user changes the keyboard.
    if (m_isRead || !m_context || !m_connection.isOpen())
        return;
    m_isRead = true;
    const auto device = xkb_x11_get_core_keyboard_device_id(m_connection.get());
    if (device >= 0)
        m_keymap.reset(xkb_x11_keymap_new_from_device(
            m_context.get(), m_connection.get(), device, XKB_KEYMAP_COMPILE_NO_FLAGS));
    readPositions();
    readModifiers();
}

void KeyMap::readPositions()
{
    m_positions.fill(std::nullopt);
    for (const auto& position : keyPositions())
        if (const auto key = keyAt(position.keyCode))
            m_positions.at(*key) = position.keyCode;
}

void KeyMap::readModifiers()
{
    for (auto& keys : m_keysOfBit)
        keys.clear();
    const auto mapping = m_connection.reply(
        xcb_get_modifier_mapping_reply, xcb_get_modifier_mapping(m_connection.get()));
    if (!mapping)
        return;
    const auto perBit = static_cast<std::size_t>(mapping->keycodes_per_modifier);
    const std::span keys(xcb_get_modifier_mapping_keycodes(mapping.get()),
        static_cast<std::size_t>(xcb_get_modifier_mapping_keycodes_length(mapping.get())));
    for (std::size_t at = 0; at < keys.size(); ++at)
        if (keys[at] != 0 && at / perBit < m_keysOfBit.size())
            m_keysOfBit[at / perBit].push_back(keys[at]);
}

std::optional<xcb_keycode_t> KeyMap::keyAt(KeyCode position)
{
    read();
    const auto name = xkbNameOf(position);
    if (!m_keymap || !name)
        return std::nullopt;
    const auto key = xkb_keymap_key_by_name(m_keymap.get(), std::string(*name).c_str());
    if (key == XKB_KEYCODE_INVALID || key > 255) // a key that the core protocol cannot name
        return std::nullopt;
    return static_cast<xcb_keycode_t>(key);
}

std::optional<KeyCode> KeyMap::positionOf(xcb_keycode_t key)
{
    read();
    return m_positions.at(key);
}

bool KeyMap::types(xcb_keycode_t key, std::uint32_t symbol, std::uint8_t layout)
{
    read();
    return m_keymap && hasSymbol(m_keymap.get(), key, layout, 0, symbol);
}

std::optional<xcb_keycode_t> KeyMap::keyTyping(std::uint32_t symbol, std::uint8_t layout)
{
    read();
    if (!m_keymap)
        return std::nullopt;
    const auto inLayout = [&](std::uint32_t wanted) -> std::optional<xcb_keycode_t> {
        const auto last = std::min<std::uint32_t>(xkb_keymap_max_keycode(m_keymap.get()), 255);
        for (auto key = xkb_keymap_min_keycode(m_keymap.get()); key <= last; ++key)
            if (hasSymbol(m_keymap.get(), static_cast<xcb_keycode_t>(key), wanted, 0, symbol))
                return static_cast<xcb_keycode_t>(key);
        return std::nullopt;
    };
    if (const auto key = inLayout(layout))
        return key;
    for (std::uint32_t other = 0; other < xkb_keymap_num_layouts(m_keymap.get()); ++other)
        if (const auto key = inLayout(other))
            return key;
    return std::nullopt;
}

std::uint32_t KeyMap::symbolOf(xcb_keycode_t key, std::uint8_t layout, std::uint16_t stateBits)
{
    read();
    if (!m_keymap)
        return XKB_KEY_NoSymbol;
    const std::unique_ptr<xkb_state, Release> state(xkb_state_new(m_keymap.get()));
    xkb_state_update_mask(state.get(), stateBits, 0, 0, 0, 0, layout);
    return xkb_state_key_get_one_sym(state.get(), key);
}

std::uint16_t KeyMap::stateBits(ModifierMask modifiers)
{
    read();
    std::uint16_t bits = 0;
    const auto add = [&](ModifierMask modifier, int bit) {
        if ((modifiers & modifier) != 0)
            bits = static_cast<std::uint16_t>(bits | bit);
    };
    // Alt and Super have no bit of their own: the keyboard says which of the five free ones it is.
    // These two are where they nearly always are.
    const auto alt = bitOfSymbols(XKB_KEY_Alt_L, XKB_KEY_Alt_R);
    const auto super = bitOfSymbols(XKB_KEY_Super_L, XKB_KEY_Super_R);
    add(modifiers::control, XCB_MOD_MASK_CONTROL);
    add(modifiers::shift, XCB_MOD_MASK_SHIFT);
    add(modifiers::option, alt != 0 ? int { alt } : int { XCB_MOD_MASK_1 });
    add(modifiers::command, super != 0 ? int { super } : int { XCB_MOD_MASK_4 });
    return bits;
}

ModifierMask KeyMap::modifiersIn(std::uint16_t bits)
{
    ModifierMask mask = 0;
    for (const auto modifier :
        { modifiers::command, modifiers::shift, modifiers::option, modifiers::control })
        if ((bits & stateBits(modifier)) != 0)
            mask |= modifier;
    return mask;
}

std::uint16_t KeyMap::numLockBit()
{
    read();
    return bitOfSymbols(XKB_KEY_Num_Lock, XKB_KEY_Num_Lock);
}

std::vector<xcb_keycode_t> KeyMap::keysSetting(std::uint16_t stateBits)
{
    read();
    std::vector<xcb_keycode_t> keys;
    for (std::size_t bit = 0; bit < m_keysOfBit.size(); ++bit)
        if ((stateBits & (1U << bit)) != 0)
            keys.insert(keys.end(), m_keysOfBit[bit].begin(), m_keysOfBit[bit].end());
    return keys;
}

std::uint16_t KeyMap::bitOfSymbols(std::uint32_t left, std::uint32_t right) const
{
    const auto carries = [&](xcb_keycode_t key, std::uint32_t level) {
        return hasSymbol(m_keymap.get(), key, 0, level, left)
            || hasSymbol(m_keymap.get(), key, 0, level, right);
    };
    if (!m_keymap)
        return 0;
    for (std::size_t bit = XCB_MAP_INDEX_1; bit < m_keysOfBit.size(); ++bit)
        for (const auto key : m_keysOfBit[bit])
            if (carries(key, 0) || carries(key, 1))
                return static_cast<std::uint16_t>(1U << bit);
    return 0;
}

} // namespace korvane
