#include "platform/wayland/WaylandKeyRecorder.h"

#include "platform/wayland/XkbModifiers.h"
#include "platform/x11/KeyPositions.h"
#include "platform/x11/KeySymbols.h"

#include <algorithm>
#include <string_view>

namespace korvane {

namespace {

    std::optional<KeyCode> positionOf(xkb_keymap* keymap, xkb_keycode_t key)
    {
        const char* const name = xkb_keymap_key_get_name(keymap, key);
        if (name == nullptr)
            return std::nullopt;
        const auto positions = keyPositions();
        const auto found
            = std::ranges::find(positions, std::string_view(name), &KeyPosition::xkbName);
        return found == positions.end() ? std::nullopt : std::optional(found->keyCode);
    }

    xkb_keysym_t symbolOf(
        xkb_keymap* keymap, xkb_keycode_t key, xkb_mod_mask_t held, xkb_layout_index_t layout)
    {
        const XkbState state(xkb_state_new(keymap));
        xkb_state_update_mask(state.get(), held, 0, 0, 0, 0, layout);
        return xkb_state_key_get_one_sym(state.get(), key);
    }

    // Shift alone is looked at, as for what is printed on the key. The keypad's digits are there with Num
    // Lock only; Shift would take them away again.
    std::string charactersOf(
        xkb_keymap* keymap, xkb_keycode_t key, xkb_mod_mask_t state, xkb_layout_index_t layout)
    {
        const auto numLock = maskOf(keymap, XKB_MOD_NAME_NUM);
        const auto shift = state & maskOf(keymap, XKB_MOD_NAME_SHIFT);
        for (const auto held : { numLock | shift, numLock })
            if (auto text = textOf(symbolOf(keymap, key, held, layout)); !text.empty())
                return text;
        return {};
    }

} // namespace

WaylandKeyRecorder::WaylandKeyRecorder(const SeatKeyboard& user)
    : m_user(user)
{
}

bool WaylandKeyRecorder::start(std::uint64_t)
{
    m_isRecording = true;
    return false;
}

void WaylandKeyRecorder::windowKeyPressed(std::uint32_t key, std::uint32_t state)
{
    auto* const keymap = m_user.keymap();
    if (!m_isRecording || keymap == nullptr)
        return;
    const auto layout = m_user.layout();
    if (isModifierSymbol(symbolOf(keymap, key, 0, layout)))
        return;
    if (const auto position = positionOf(keymap, key))
        keyDown(
            { *position, modifiersIn(keymap, state), charactersOf(keymap, key, state, layout) });
    else
        unnamedKeyDown();
}

} // namespace korvane
