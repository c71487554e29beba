#pragma once

#include "platform/wayland/WaylandClient.h"
#include "platform/wayland/XkbHandles.h"

#include <optional>
#include <string>
#include <vector>

struct org_kde_kwin_fake_input;
struct zwp_virtual_keyboard_v1;

namespace korvane::test {

/// The keyboard on the user's desk, which a desktop without devices lacks.
class UsersKeyboard {
public:
    /// @param layout  what its keys mean (only where the compositor lets a keyboard say so: see
    ///                `choosesLayout`)
    explicit UsersKeyboard(const char* layout = "us");
    UsersKeyboard(const UsersKeyboard&) = delete;
    UsersKeyboard& operator=(const UsersKeyboard&) = delete;
    ~UsersKeyboard();

    /// False where no program may type at all.
    bool isThere() const { return m_virtual != nullptr || m_fake != nullptr; }
    bool choosesLayout() const { return m_virtual != nullptr; }
    /// @param key  the kernel's number
    void press(std::uint32_t key) { send(key, true); }
    void release(std::uint32_t key) { send(key, false); }

private:
    void send(std::uint32_t key, bool isDown);

    WaylandClient m_client;
    XkbContext m_context { xkb_context_new(XKB_CONTEXT_NO_FLAGS) };
    XkbKeymap m_keymap;
    XkbState m_state;
    zwp_virtual_keyboard_v1* m_virtual = nullptr;
    org_kde_kwin_fake_input* m_fake = nullptr;
    std::vector<std::uint32_t> m_pressed;
};

/// A window of another program that notes what is typed into it.
class KeyTarget {
public:
    KeyTarget(WaylandClient& client, const std::string& appId);
    KeyTarget(const KeyTarget&) = delete;
    KeyTarget& operator=(const KeyTarget&) = delete;
    ~KeyTarget();

    /// The keyboard is there, and this window has it.
    bool hasKeyboard();
    /// What was typed so far, modifiers first: "Control+v". Modifier keys alone are not noted.
    const std::vector<std::string>& typed();

private:
    void keyPressed(std::uint32_t key);

    WaylandClient& m_client;
    XkbContext m_context { xkb_context_new(XKB_CONTEXT_NO_FLAGS) };
    XkbKeymap m_keymap;
    XkbState m_state;
    wl_seat* m_seat;
    wl_keyboard* m_keyboard = nullptr;
    bool m_hasKeyboard = false;
    std::vector<std::string> m_typed;
    std::optional<WaylandWindow> m_window;
};

} // namespace korvane::test
