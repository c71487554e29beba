#include "platform/x11/X11OutsideClicks.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11RawInput.h"

#include <utility>

namespace korvane {

namespace {
    constexpr std::uint32_t leftButton = 1;
    constexpr std::uint32_t rightButton = 3;
    // No window of ours lies deeper; a tree that changes under the question cannot keep us longer.
    constexpr int maxDepth = 32;
} // namespace

std::function<bool(xcb_window_t)> windowsOf(xcb_connection_t* connection)
{
    if (connection == nullptr)
        return [](xcb_window_t) { return false; };
    const auto* setup = xcb_get_setup(connection);
    return [base = setup->resource_id_base, mask = setup->resource_id_mask](
               xcb_window_t window) { return (window & ~mask) == base; };
}

X11OutsideClicks::X11OutsideClicks(
    X11Connection& connection, X11RawInput& rawInput, std::function<bool(xcb_window_t)> isOwnWindow)
    : m_connection(connection)
    , m_rawInput(rawInput)
    , m_isOwnWindow(std::move(isOwnWindow))
{
}

X11OutsideClicks::~X11OutsideClicks()
{
    unwatch();
}

void X11OutsideClicks::watch()
{
    m_buttonPressed = m_rawInput.buttonPressed.connect([this](const ButtonPress& press) {
        if ((press.button == leftButton || press.button == rightButton)
            && !isPointerOverOwnWindow())
            pressed();
    });
    m_rawInput.tellButtons(true);
}

void X11OutsideClicks::unwatch()
{
    m_buttonPressed.disconnect();
    m_rawInput.tellButtons(false);
}

// Raw events name no window. Ours may lie within one of another program, as a tray icon does.
bool X11OutsideClicks::isPointerOverOwnWindow()
{
    auto window = m_connection.root();
    for (int depth = 0; depth < maxDepth && window != XCB_NONE; ++depth) {
        if (m_isOwnWindow(window))
            return true;
        const auto pointer = m_connection.reply(
            xcb_query_pointer_reply, xcb_query_pointer(m_connection.get(), window));
        window = pointer ? pointer->child : XCB_NONE;
    }
    return false;
}

} // namespace korvane
