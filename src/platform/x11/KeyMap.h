#pragma once

#include "hotkey/KeyCodes.h"
#include "model/MainLoop.h"
#include "model/Signal.h"

#include <xcb/xcb.h>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

struct xkb_context;
struct xkb_keymap;
struct xkb_state;

namespace korvane {

class X11Connection;

/// The server's keyboard: which key code a position has, which key types a character, which bit of
/// a key event stands for which modifier. It follows the user's changes of layout.
class KeyMap {
public:
    KeyMap(X11Connection& connection, MainLoop& loop);
    ~KeyMap();
    KeyMap(const KeyMap&) = delete;
    KeyMap& operator=(const KeyMap&) = delete;

    /// The key at the position that the virtual code names; none when the keyboard has no such key.
    std::optional<xcb_keycode_t> keyAt(KeyCode position);
    /// The virtual code of the key's position; none for keys that no shortcut can name.
    std::optional<KeyCode> positionOf(xcb_keycode_t key);
    /// The key that types the symbol without any modifier, in this layout of the user's, or else in
    /// the first of the others that has it.
    /// @param symbol  an X key symbol
    /// @param layout  number of the layout ("group"), from 0
    std::optional<xcb_keycode_t> keyTyping(std::uint32_t symbol, std::uint8_t layout);
    /// Does the key type the symbol in this layout, without any modifier?
    bool types(xcb_keycode_t key, std::uint32_t symbol, std::uint8_t layout);

    /// The symbol that the key types in this layout while nothing is in force but these bits of a key
    /// event; 0 where it types none.
    std::uint32_t symbolOf(xcb_keycode_t key, std::uint8_t layout, std::uint16_t stateBits);

    /// The bits that these modifiers have in a key event. Ctrl, Alt, Shift and Super stand for
    /// Control, Option, Shift and Command.
    std::uint16_t stateBits(ModifierMask modifiers);
    /// The modifiers that a key event's bits name; the other way round. What has no name is dropped.
    ModifierMask modifiersIn(std::uint16_t stateBits);
    /// The bit of Num Lock; 0 when the keyboard has none.
    std::uint16_t numLockBit();
    /// The keys that set any of these bits of a key event while they are held.
    std::vector<xcb_keycode_t> keysSetting(std::uint16_t stateBits);

    /// The user has changed the layout or the keyboard: the same question may now have another
    /// answer. Told once for a burst of changes, on the next turn of the loop.
    Signal<> changed;

private:
    struct Release {
        void operator()(xkb_context* context) const;
        void operator()(xkb_keymap* keymap) const;
        void operator()(xkb_state* state) const;
    };

    bool startExtension();
    void askForDetectableRepeat();
    void watch();
    void forget();
    void read();
    void readPositions();
    void readModifiers();
    std::uint16_t bitOfSymbols(std::uint32_t left, std::uint32_t right) const;

    X11Connection& m_connection;
    MainLoop& m_loop;
    std::unique_ptr<xkb_context, Release> m_context;
    std::unique_ptr<xkb_keymap, Release> m_keymap;
    bool m_isRead = false;
    std::array<std::optional<KeyCode>, 256> m_positions;   // by key
    std::array<std::vector<xcb_keycode_t>, 8> m_keysOfBit; // by bit of a key event's state
    std::vector<Connection> m_connections;
    Timer m_tellingOfChange;
};

} // namespace korvane
