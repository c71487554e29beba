#pragma once

#include "model/Signal.h"
#include "platform/wayland/XkbHandles.h"

#include <wayland-client.h>

#include <cstdint>
#include <memory>

namespace korvane {

/// The user's keyboard, as a compositor tells of it to a program: always what the keys mean, and as long as a
/// window of the program has the keyboard also what is held. What was held last stays known when that
/// window closes.
class SeatKeyboard {
public:
    /// @param display  the connection on which the program's windows are, or any; whoever owns it
    ///                 dispatches its events. It must outlive this.
    explicit SeatKeyboard(wl_display* display);
    SeatKeyboard(const SeatKeyboard&) = delete;
    SeatKeyboard& operator=(const SeatKeyboard&) = delete;
    ~SeatKeyboard() = default;

    /// Null until the compositor has told of a keyboard.
    xkb_keymap* keymap() const { return m_keymap.get(); }
    /// The number of the layout in force.
    xkb_layout_index_t layout() const { return m_layout; }
    /// The modifiers that are held, as a mask of the keymap.
    xkb_mod_mask_t heldModifiers() const { return m_held; }

    /// The keys mean something else now: the user has changed the layout or the keyboard.
    Signal<> changed;

private:
    struct Destroy {
        void operator()(wl_registry* registry) const { wl_registry_destroy(registry); }
        void operator()(wl_seat* seat) const { wl_seat_destroy(seat); }
        void operator()(wl_keyboard* keyboard) const { wl_keyboard_destroy(keyboard); }
    };

    void bindSeat(std::uint32_t name);
    void takeKeyboard(bool isThere);
    void readKeymap(int descriptor, std::uint32_t size);
    void setLayout(xkb_layout_index_t layout);

    XkbContext m_context;
    XkbKeymap m_keymap;
    xkb_layout_index_t m_layout = 0;
    xkb_mod_mask_t m_held = 0;
    std::unique_ptr<wl_registry, Destroy> m_registry;
    std::unique_ptr<wl_seat, Destroy> m_seat;
    std::unique_ptr<wl_keyboard, Destroy> m_keyboard;
};

} // namespace korvane
