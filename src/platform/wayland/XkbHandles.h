#pragma once

#include <xkbcommon/xkbcommon.h>

#include <memory>

namespace korvane {

struct XkbRelease {
    void operator()(xkb_context* context) const { xkb_context_unref(context); }
    void operator()(xkb_keymap* keymap) const { xkb_keymap_unref(keymap); }
    void operator()(xkb_state* state) const { xkb_state_unref(state); }
};
using XkbContext = std::unique_ptr<xkb_context, XkbRelease>;
using XkbKeymap = std::unique_ptr<xkb_keymap, XkbRelease>;
using XkbState = std::unique_ptr<xkb_state, XkbRelease>;

/// The kernel numbers the keys of a keyboard from eight less than a keymap does.
inline constexpr xkb_keycode_t kernelKeyOffset = 8;

} // namespace korvane
