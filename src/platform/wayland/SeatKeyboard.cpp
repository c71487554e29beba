#include "platform/wayland/SeatKeyboard.h"

#include "model/Files.h"

#include <sys/mman.h>

#include <string_view>

namespace korvane {

namespace {

    constexpr std::uint32_t seatVersion = 1; // which tells all that is asked here

    SeatKeyboard& keyboardOf(void* self)
    {
        return *static_cast<SeatKeyboard*>(self);
    }

} // namespace

SeatKeyboard::SeatKeyboard(wl_display* display)
    : m_context(xkb_context_new(XKB_CONTEXT_NO_FLAGS))
{
    if (display == nullptr)
        return;
    m_registry.reset(wl_display_get_registry(display));
    static constexpr wl_registry_listener listener {
        .global =
            [](void* self, wl_registry*, std::uint32_t name, const char* interface, std::uint32_t) {
                if (std::string_view(interface) == wl_seat_interface.name)
                    keyboardOf(self).bindSeat(name);
            },
        .global_remove = [](void*, wl_registry*, std::uint32_t) {},
    };
    wl_registry_add_listener(m_registry.get(), &listener, this);
}

void SeatKeyboard::bindSeat(std::uint32_t name)
{
    if (m_seat)
        return; // the first is the user's
    m_seat.reset(static_cast<wl_seat*>(
        wl_registry_bind(m_registry.get(), name, &wl_seat_interface, seatVersion)));
    static constexpr wl_seat_listener listener {
        .capabilities =
            [](void* self, wl_seat*, std::uint32_t capabilities) {
                keyboardOf(self).takeKeyboard((capabilities & WL_SEAT_CAPABILITY_KEYBOARD) != 0);
            },
        .name = [](void*, wl_seat*, const char*) {},
    };
    wl_seat_add_listener(m_seat.get(), &listener, this);
}

void SeatKeyboard::takeKeyboard(bool isThere)
{
    if (!isThere)
        m_keyboard.reset();
    if (!isThere || m_keyboard)
        return;
    m_keyboard.reset(wl_seat_get_keyboard(m_seat.get()));
    static constexpr wl_keyboard_listener listener {
        .keymap =
            [](void* self, wl_keyboard*, std::uint32_t format, std::int32_t descriptor,
                std::uint32_t size) {
                const Descriptor file(descriptor);
                if (format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1)
                    keyboardOf(self).readKeymap(file.number(), size);
            },
        .enter = [](void*, wl_keyboard*, std::uint32_t, wl_surface*, wl_array*) {},
        .leave = [](void*, wl_keyboard*, std::uint32_t, wl_surface*) {},
        .key
        = [](void*, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {},
        .modifiers =
            [](void* self, wl_keyboard*, std::uint32_t, std::uint32_t depressed, std::uint32_t,
                std::uint32_t, std::uint32_t group) {
                keyboardOf(self).m_held = depressed;
                keyboardOf(self).setLayout(group);
            },
        .repeat_info = [](void*, wl_keyboard*, std::int32_t, std::int32_t) {},
    };
    wl_keyboard_add_listener(m_keyboard.get(), &listener, this);
}

void SeatKeyboard::readKeymap(int descriptor, std::uint32_t size)
{
    void* const text = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor, 0);
    if (text == MAP_FAILED)
        return;
    // It ends with a NUL, or where the file does.
    const std::string_view all(static_cast<const char*>(text), size);
    const auto keymap = all.substr(0, all.find('\0'));
    m_keymap.reset(xkb_keymap_new_from_buffer(m_context.get(), keymap.data(), keymap.size(),
        XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS));
    ::munmap(text, size);
    changed();
}

void SeatKeyboard::setLayout(xkb_layout_index_t layout)
{
    if (m_layout == layout)
        return;
    m_layout = layout;
    changed();
}

} // namespace korvane
