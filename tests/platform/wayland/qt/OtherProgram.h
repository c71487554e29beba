#pragma once

#include "platform/wayland/qt/TestConnection.h"

#include <wlr-layer-shell-unstable-v1-client-protocol.h>
#include <xdg-shell-client-protocol.h>

#include <cstdint>
#include <functional>

namespace korvane::test {

/// A surface of another program, of one colour.
class OtherSurface {
public:
    explicit OtherSurface(std::uint32_t colour);
    OtherSurface(const OtherSurface&) = delete;
    OtherSurface& operator=(const OtherSurface&) = delete;

    TestConnection& connection() { return m_connection; }
    wl_surface* get() { return m_surface; }
    /// Fills it; the picture is shown with the next commit.
    void paint(int width, int height);

private:
    TestConnection m_connection;
    wl_shm* m_shm;
    wl_surface* m_surface;
    std::uint32_t m_colour;
};

/// An ordinary window of another program, which listens to the keyboard and the pointer.
class OtherWindow {
public:
    static constexpr std::uint32_t colour = 0xff305070;

    /// Returns when it is shown.
    OtherWindow();

    bool hasKeyboard();
    int presses();

private:
    OtherSurface m_surface { colour };
    bool m_isConfigured = false;
    bool m_hasKeyboard = false;
    int m_presses = 0;
};

/// A bar at an edge of the output, which reserves its room.
class OtherBar {
public:
    static constexpr int thickness = 30;
    static constexpr std::uint32_t colour = 0xff202020;

    /// Returns when it is shown.
    explicit OtherBar(zwlr_layer_surface_v1_anchor edge = ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP);

private:
    OtherSurface m_surface { colour };
    int m_width = 0;
};

} // namespace korvane::test
