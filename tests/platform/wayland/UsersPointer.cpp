#include "platform/wayland/UsersPointer.h"

#include <fake-input-client-protocol.h>
#include <wlr-virtual-pointer-unstable-v1-client-protocol.h>

namespace korvane::test {

UsersPointer::UsersPointer(std::uint32_t width, std::uint32_t height)
    : m_width(width)
    , m_height(height)
{
    auto* const manager = m_client.bind<zwlr_virtual_pointer_manager_v1>(
        zwlr_virtual_pointer_manager_v1_interface, 1);
    if (manager != nullptr) {
        m_virtual
            = zwlr_virtual_pointer_manager_v1_create_virtual_pointer(manager, m_client.seat());
    } else {
        m_fake = m_client.bind<org_kde_kwin_fake_input>(org_kde_kwin_fake_input_interface, 4);
        if (m_fake != nullptr)
            org_kde_kwin_fake_input_authenticate(m_fake, "user", "points");
    }
    m_client.sync();
}

UsersPointer::~UsersPointer()
{
    if (m_virtual != nullptr)
        zwlr_virtual_pointer_v1_destroy(m_virtual);
    m_client.sync();
}

void UsersPointer::moveTo(std::uint32_t x, std::uint32_t y)
{
    if (m_virtual != nullptr) {
        zwlr_virtual_pointer_v1_motion_absolute(m_virtual, ++m_time, x, y, m_width, m_height);
        zwlr_virtual_pointer_v1_frame(m_virtual);
    } else if (m_fake != nullptr) {
        org_kde_kwin_fake_input_pointer_motion_absolute(
            m_fake, wl_fixed_from_int(static_cast<int>(x)), wl_fixed_from_int(static_cast<int>(y)));
    }
    m_client.sync();
}

void UsersPointer::send(std::uint32_t button, bool isDown)
{
    const std::uint32_t state
        = isDown ? WL_POINTER_BUTTON_STATE_PRESSED : WL_POINTER_BUTTON_STATE_RELEASED;
    if (m_virtual != nullptr) {
        zwlr_virtual_pointer_v1_button(m_virtual, ++m_time, button, state);
        zwlr_virtual_pointer_v1_frame(m_virtual);
    } else if (m_fake != nullptr) {
        org_kde_kwin_fake_input_button(m_fake, button, state);
    }
    m_client.sync();
}

} // namespace korvane::test
