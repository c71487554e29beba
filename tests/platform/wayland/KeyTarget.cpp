#include "platform/wayland/KeyTarget.h"

#include <fake-input-client-protocol.h>
#include <virtual-keyboard-unstable-v1-client-protocol.h>

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace korvane::test {

namespace {

    XkbKeymap keymapOf(xkb_context* context, const char* layout)
    {
        xkb_rule_names names {};
        names.rules = "evdev";
        names.model = "pc105";
        names.layout = layout;
        return XkbKeymap(xkb_keymap_new_from_names(context, &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
    }

    std::string textOf(xkb_keymap* keymap)
    {
        char* const text = xkb_keymap_get_as_string(keymap, XKB_KEYMAP_FORMAT_TEXT_V1);
        std::string kept(text);
        ::free(text); // NOLINT: it is the library's malloc
        return kept;
    }

} // namespace

UsersKeyboard::UsersKeyboard(const char* layout)
    : m_keymap(keymapOf(m_context.get(), layout))
    , m_state(xkb_state_new(m_keymap.get()))
{
    auto* const manager = m_client.bind<zwp_virtual_keyboard_manager_v1>(
        zwp_virtual_keyboard_manager_v1_interface, 1);
    if (manager != nullptr) {
        const auto text = textOf(m_keymap.get());
        const Descriptor file(::memfd_create("keymap", MFD_CLOEXEC));
        [[maybe_unused]] const auto written = ::write(file.number(), text.c_str(), text.size() + 1);
        m_virtual
            = zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(manager, m_client.seat());
        zwp_virtual_keyboard_v1_keymap(m_virtual, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file.number(),
            static_cast<std::uint32_t>(text.size() + 1));
    } else {
        m_fake = m_client.bind<org_kde_kwin_fake_input>(org_kde_kwin_fake_input_interface, 4);
        if (m_fake != nullptr)
            org_kde_kwin_fake_input_authenticate(m_fake, "user", "types");
    }
    m_client.sync();
}

UsersKeyboard::~UsersKeyboard()
{
    for (const auto key : std::vector(m_pressed))
        release(key);
    if (m_virtual != nullptr)
        zwp_virtual_keyboard_v1_destroy(m_virtual);
    m_client.sync();
}

void UsersKeyboard::send(std::uint32_t key, bool isDown)
{
    if (isDown)
        m_pressed.push_back(key);
    else
        std::erase(m_pressed, key);
    const std::uint32_t state
        = isDown ? WL_KEYBOARD_KEY_STATE_PRESSED : WL_KEYBOARD_KEY_STATE_RELEASED;
    if (m_virtual != nullptr) {
        zwp_virtual_keyboard_v1_key(m_virtual, 0, key, state);
        xkb_state_update_key(
            m_state.get(), key + kernelKeyOffset, isDown ? XKB_KEY_DOWN : XKB_KEY_UP);
        zwp_virtual_keyboard_v1_modifiers(
            m_virtual, xkb_state_serialize_mods(m_state.get(), XKB_STATE_MODS_DEPRESSED), 0, 0, 0);
    } else if (m_fake != nullptr) {
        org_kde_kwin_fake_input_keyboard_key(m_fake, key, state);
    }
    m_client.sync();
}

KeyTarget::KeyTarget(WaylandClient& client, const std::string& appId)
    : m_client(client)
    , m_seat(client.bind<wl_seat>(wl_seat_interface, 1))
{
    static constexpr wl_keyboard_listener keys {
        .keymap =
            [](void* self, wl_keyboard*, std::uint32_t, std::int32_t descriptor,
                std::uint32_t size) {
                auto& target = *static_cast<KeyTarget*>(self);
                const Descriptor file(descriptor);
                void* const text = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.number(), 0);
                target.m_keymap.reset(xkb_keymap_new_from_string(target.m_context.get(),
                    static_cast<const char*>(text), XKB_KEYMAP_FORMAT_TEXT_V1,
                    XKB_KEYMAP_COMPILE_NO_FLAGS));
                target.m_state.reset(xkb_state_new(target.m_keymap.get()));
                ::munmap(text, size);
            },
        .enter = [](void* self, wl_keyboard*, std::uint32_t, wl_surface*,
                     wl_array*) { static_cast<KeyTarget*>(self)->m_hasKeyboard = true; },
        .leave = [](void* self, wl_keyboard*, std::uint32_t,
                     wl_surface*) { static_cast<KeyTarget*>(self)->m_hasKeyboard = false; },
        .key =
            [](void* self, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t key,
                std::uint32_t state) {
                if (state == WL_KEYBOARD_KEY_STATE_PRESSED)
                    static_cast<KeyTarget*>(self)->keyPressed(key);
            },
        .modifiers =
            [](void* self, wl_keyboard*, std::uint32_t, std::uint32_t depressed,
                std::uint32_t latched, std::uint32_t locked, std::uint32_t group) {
                xkb_state_update_mask(static_cast<KeyTarget*>(self)->m_state.get(), depressed,
                    latched, locked, 0, 0, group);
            },
        .repeat_info = [](void*, wl_keyboard*, std::int32_t, std::int32_t) {},
    };
    static constexpr wl_seat_listener listener {
        .capabilities =
            [](void* self, wl_seat* seat, std::uint32_t capabilities) {
                auto& target = *static_cast<KeyTarget*>(self);
                const bool isThere = (capabilities & WL_SEAT_CAPABILITY_KEYBOARD) != 0;
                if (isThere && target.m_keyboard == nullptr) {
                    target.m_keyboard = wl_seat_get_keyboard(seat);
                    wl_keyboard_add_listener(target.m_keyboard, &keys, self);
                }
            },
        .name = [](void*, wl_seat*, const char*) {},
    };
    wl_seat_add_listener(m_seat, &listener, this);
    m_window.emplace(client, appId);
}

KeyTarget::~KeyTarget()
{
    if (m_keyboard != nullptr)
        wl_keyboard_destroy(m_keyboard);
    m_client.end(m_seat);
}

bool KeyTarget::hasKeyboard()
{
    m_client.listen();
    return m_hasKeyboard && m_keymap != nullptr;
}

const std::vector<std::string>& KeyTarget::typed()
{
    m_client.listen();
    return m_typed;
}

void KeyTarget::keyPressed(std::uint32_t key)
{
    const auto code = key + kernelKeyOffset;
    std::array<char, 64> name {};
    const auto* const symbols = [&]() -> const xkb_keysym_t* {
        const xkb_keysym_t* found = nullptr;
        const auto layout = xkb_state_key_get_layout(m_state.get(), code);
        const int count = xkb_keymap_key_get_syms_by_level(m_keymap.get(), code, layout, 0, &found);
        return count > 0 ? found : nullptr;
    }();
    if (symbols == nullptr)
        return;
    xkb_keysym_get_name(*symbols, name.data(), name.size());
    const std::string symbol(name.data());
    if (symbol.ends_with("_L") || symbol.ends_with("_R"))
        return;
    std::string chord;
    for (const auto* const modifier :
        { XKB_MOD_NAME_CTRL, XKB_MOD_NAME_ALT, XKB_MOD_NAME_SHIFT, XKB_MOD_NAME_LOGO }) {
        if (xkb_state_mod_name_is_active(m_state.get(), modifier, XKB_STATE_MODS_EFFECTIVE) > 0)
            chord += std::string(modifier) + "+";
    }
    m_typed.push_back(chord + symbol);
}

} // namespace korvane::test
