#include "platform/x11/RequestWindows.h"

#include <array>
#include <cstddef>

namespace korvane {

namespace {

    // A copy is read with two to four requests: a slow owner has about ten copies' time.
    constexpr std::size_t maxRetired = 32;

} // namespace

RequestWindows::Window::Window(RequestWindows& windows)
    : m_windows(windows)
    , m_id(windows.make())
{
}

RequestWindows::Window::~Window()
{
    m_windows.retire(m_id);
}

RequestWindows::RequestWindows(X11Connection& connection)
    : m_connection(connection)
    , m_property(connection.atom("KORVANE_SELECTION"))
{
}

xcb_window_t RequestWindows::make()
{
    auto* const connection = m_connection.get();
    const auto id = xcb_generate_id(connection);
    constexpr std::array<std::uint32_t, 1> events { XCB_EVENT_MASK_PROPERTY_CHANGE };
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, id, m_connection.root(), 0, 0, 1, 1, 0,
        XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, events.data());
    return id;
}

void RequestWindows::retire(xcb_window_t window)
{
    auto* const connection = m_connection.get();
    constexpr std::array<std::uint32_t, 1> noEvents { XCB_EVENT_MASK_NO_EVENT };
    xcb_change_window_attributes(connection, window, XCB_CW_EVENT_MASK, noEvents.data());
    // What an abandoned owner has delivered would otherwise lie in the server's memory.
    xcb_delete_property(connection, window, m_property);
    m_retired.push_back(window);
    if (m_retired.size() > maxRetired) {
        xcb_destroy_window(connection, m_retired.front());
        m_retired.pop_front();
    }
    m_connection.flush();
}

} // namespace korvane
