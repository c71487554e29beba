#include "platform/x11/X11WindowFrame.h"

#include "platform/x11/X11Connection.h"

#include <xcb/shape.h>

#include <array>
#include <cstdint>

namespace korvane {

namespace {

    template <std::size_t count>
    void setNumbers(X11Connection& connection, xcb_window_t window, std::string_view property,
        const std::array<std::uint32_t, count>& numbers)
    {
        xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, window,
            connection.atom(property), XCB_ATOM_CARDINAL, 32, count, numbers.data());
    }

} // namespace

void tellWindowFrame(
    X11Connection& connection, xcb_window_t window, const PixelRect& visible, int width, int height)
{
    const auto number = [](int pixels) { return static_cast<std::uint32_t>(pixels); };
    // Left, right, top, bottom: a convention of one toolkit that window managers have taken up.
    setNumbers<4>(connection, window, "_GTK_FRAME_EXTENTS",
        { number(visible.x), number(width - visible.right()), number(visible.y),
            number(height - visible.bottom()) });
    // picom casts a square shadow around every window that does not say this.
    setNumbers<1>(connection, window, "_COMPTON_SHADOW", { 0 });
    if (connection.extension(&xcb_shape_id)) {
        const xcb_rectangle_t reachable { static_cast<std::int16_t>(visible.x),
            static_cast<std::int16_t>(visible.y), static_cast<std::uint16_t>(visible.width),
            static_cast<std::uint16_t>(visible.height) };
        xcb_shape_rectangles(connection.get(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT,
            XCB_CLIP_ORDERING_UNSORTED, window, 0, 0, 1, &reachable);
    }
    connection.flush();
}

} // namespace korvane
