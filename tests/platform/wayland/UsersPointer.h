#pragma once

#include "platform/wayland/WaylandClient.h"

#include <cstdint>

struct org_kde_kwin_fake_input;
struct zwlr_virtual_pointer_v1;

namespace korvane::test {

/// The mouse on the user's desk, which a desktop without devices lacks.
class UsersPointer {
public:
    /// @param width, height  the size of all outputs together, in points
    UsersPointer(std::uint32_t width, std::uint32_t height);
    UsersPointer(const UsersPointer&) = delete;
    UsersPointer& operator=(const UsersPointer&) = delete;
    ~UsersPointer();

    /// False where no program may move it.
    bool isThere() const { return m_virtual != nullptr || m_fake != nullptr; }
    /// In points, from the top left corner of all outputs together.
    void moveTo(std::uint32_t x, std::uint32_t y);
    /// @param button  as the kernel numbers it (linux/input-event-codes.h)
    void press(std::uint32_t button) { send(button, true); }
    void release(std::uint32_t button) { send(button, false); }

private:
    void send(std::uint32_t button, bool isDown);

    WaylandClient m_client;
    std::uint32_t m_width;
    std::uint32_t m_height;
    std::uint32_t m_time = 0;
    zwlr_virtual_pointer_v1* m_virtual = nullptr;
    org_kde_kwin_fake_input* m_fake = nullptr;
};

} // namespace korvane::test
