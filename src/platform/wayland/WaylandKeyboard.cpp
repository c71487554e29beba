#include "platform/wayland/WaylandKeyboard.h"

#include "model/Files.h"
#include "platform/wayland/KeyTyping.h"

#include <fake-input-client-protocol.h>
#include <virtual-keyboard-unstable-v1-client-protocol.h>

#include <xkbcommon/xkbcommon-keysyms.h>

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <ctime>
#include <string_view>
#include <utility>

namespace korvane {

namespace {

    constexpr KeyCode insertKey = 114;
    constexpr std::uint32_t fakeInputVersion = 4; // the first that types keys

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

    struct Free {
        void operator()(char* text) const { std::free(text); } // NOLINT: it is the library's malloc
    };
    struct DestroyKeyboard {
        void operator()(zwp_virtual_keyboard_v1* keyboard) const
        {
            zwp_virtual_keyboard_v1_destroy(keyboard);
        }
    };
    using OwnKeyboard = std::unique_ptr<zwp_virtual_keyboard_v1, DestroyKeyboard>;

    // Complete, deliberately: programs find no paste in a keymap of the few keys that are typed.
    XkbKeymap makeOwnKeymap(xkb_context* context)
    {
        xkb_rule_names names {};
        names.rules = "evdev";
        names.model = "pc105";
        names.layout = "us";
        return XkbKeymap(xkb_keymap_new_from_names(context, &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
    }

    bool giveKeymap(zwp_virtual_keyboard_v1* keyboard, xkb_keymap* keymap)
    {
        const std::unique_ptr<char, Free> text(
            xkb_keymap_get_as_string(keymap, XKB_KEYMAP_FORMAT_TEXT_V1));
        const Descriptor file(::memfd_create("keymap", MFD_CLOEXEC));
        if (!text || !file.isOpen())
            return false;
        const auto size = std::string_view(text.get()).size() + 1; // with its NUL
        if (::write(file.number(), text.get(), size) != static_cast<ssize_t>(size))
            return false;
        zwp_virtual_keyboard_v1_keymap(keyboard, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file.number(),
            static_cast<std::uint32_t>(size));
        return true;
    }

    std::uint32_t now()
    {
        std::timespec time {};
        ::clock_gettime(CLOCK_MONOTONIC, &time);
        return static_cast<std::uint32_t>(time.tv_sec * 1000 + time.tv_nsec / 1'000'000);
    }

} // namespace

void WaylandKeyboard::Release::operator()(zwp_virtual_keyboard_manager_v1* manager) const
{
    zwp_virtual_keyboard_manager_v1_destroy(manager);
}

void WaylandKeyboard::Release::operator()(org_kde_kwin_fake_input* input) const
{
    org_kde_kwin_fake_input_destroy(input);
}

WaylandKeyboard::WaylandKeyboard(
    WaylandConnection& connection, const SeatKeyboard& user, Terminals terminals)
    : m_connection(connection)
    , m_user(user)
    , m_terminals(std::move(terminals))
    , m_context(xkb_context_new(XKB_CONTEXT_NO_FLAGS))
    , m_ownKeymap(makeOwnKeymap(m_context.get()))
{
    if (connection.seat() != nullptr && m_ownKeymap)
        m_virtual.reset(connection.bind<zwp_virtual_keyboard_manager_v1>(
            zwp_virtual_keyboard_manager_v1_interface, 1));
    if (m_virtual || connection.versionOf(org_kde_kwin_fake_input_interface) < fakeInputVersion)
        return;
    m_fakeInput.reset(connection.bind<org_kde_kwin_fake_input>(
        org_kde_kwin_fake_input_interface, fakeInputVersion));
    if (m_fakeInput) {
        org_kde_kwin_fake_input_authenticate(
            m_fakeInput.get(), "Korvane", "Pastes a clip into the window that is in front.");
        connection.flush();
    }
}

WaylandKeyboard::~WaylandKeyboard() = default;

void WaylandKeyboard::typeChord(KeyCode keyCode, ModifierMask modifiers)
{
    // On our own keyboard we know what the keys mean. On the user's it is the letter that counts: where
    // nobody has told what the keys mean, the usual places of the letters are tried.
    const bool isOwn = m_virtual != nullptr;
    const bool isUsersKnown = !isOwn && m_user.keymap() != nullptr;
    auto* const keymap = isUsersKnown ? m_user.keymap() : m_ownKeymap.get();
    const auto layout = isUsersKnown ? m_user.layout() : 0;
    if (!canType() || keymap == nullptr)
        return;

    const bool isPaste = keyCode == keycodes::v && modifiers == modifiers::command;
    std::optional<ChordKeys> keys;
    if (isPaste && m_terminals.isInFront()) {
        m_terminals.takePrimary();
        keys = chordAt(keymap, insertKey, modifiers::shift);
    } else if (isPaste) {
        keys = chordTyping(keymap, layout, XKB_KEY_v, withCommandAsCtrl(modifiers));
    }
    if (!keys)
        keys = chordAt(keymap, keyCode, withCommandAsCtrl(modifiers));
    if (keys && isOwn)
        typeOnOwnKeyboard(*keys);
    else if (keys)
        typeOnUsersKeyboard(*keys);
}

// It has modifiers of its own: what the user holds does not change the chord.
void WaylandKeyboard::typeOnOwnKeyboard(const ChordKeys& keys)
{
    const OwnKeyboard keyboard(zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(
        m_virtual.get(), m_connection.seat()));
    const XkbState state(xkb_state_new(m_ownKeymap.get()));
    if (!state || !giveKeymap(keyboard.get(), m_ownKeymap.get()))
        return;
    forEachStroke(keys, [&](xkb_keycode_t key, bool isDown) {
        zwp_virtual_keyboard_v1_key(keyboard.get(), now(), key - kernelKeyOffset,
            isDown ? WL_KEYBOARD_KEY_STATE_PRESSED : WL_KEYBOARD_KEY_STATE_RELEASED);
        xkb_state_update_key(state.get(), key, isDown ? XKB_KEY_DOWN : XKB_KEY_UP);
        zwp_virtual_keyboard_v1_modifiers(keyboard.get(),
            xkb_state_serialize_mods(state.get(), XKB_STATE_MODS_DEPRESSED), 0, 0, 0);
    });
    // A keyboard that goes before its keys have been dealt with takes them along.
    m_connection.roundTrip();
}

// It has the user's modifiers. Those are let go and not pressed again afterwards, deliberately: a key that
// the user lets go in between would then stay down for ever.
void WaylandKeyboard::typeOnUsersKeyboard(const ChordKeys& keys)
{
    const auto send = [&](xkb_keycode_t key, bool isDown) {
        org_kde_kwin_fake_input_keyboard_key(m_fakeInput.get(), key - kernelKeyOffset,
            isDown ? WL_KEYBOARD_KEY_STATE_PRESSED : WL_KEYBOARD_KEY_STATE_RELEASED);
    };
    if (auto* const keymap = m_user.keymap())
        for (const auto held : keysHolding(keymap, m_user.heldModifiers()))
            send(held, false);
    forEachStroke(keys, send);
    m_connection.flush();
}

} // namespace korvane
