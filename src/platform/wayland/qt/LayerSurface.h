#pragma once

#include "model/Signal.h"
#include "platform/wayland/qt/LayerHandles.h"

#include <QSize>

#include <cstdint>
#include <memory>

namespace korvane {

class LayerShell;

/// The role of a surface that covers an output, above every window (wlr-layer-shell's overlay layer,
/// anchored to all four edges). It has to end before its surface does.
class LayerSurface {
public:
    struct Wishes {
        wl_output* output
            = nullptr; ///< null: the one that the user works on, as the compositor sees it
        bool takesKeyboard = false;
        bool isOverBars = true; ///< false: what the bars leave of the output
    };

    /// Gives the surface the role and waits until the compositor has answered. Only then may a picture be
    /// attached.
    /// @return none when it refuses, or keeps silent
    static std::unique_ptr<LayerSurface> make(
        LayerShell& shell, wl_surface& surface, const Wishes& wishes);
    ~LayerSurface();
    LayerSurface(const LayerSurface&) = delete;
    LayerSurface& operator=(const LayerSurface&) = delete;

    /// In points.
    QSize size() const { return m_size; }
    zwlr_layer_surface_v1* get() const { return m_role.get(); }
    void setKeyboard(bool isWanted);

    Signal<> resized;
    /// The compositor shows it no longer and never will again.
    Signal<> closed;

private:
    LayerSurface(LayerShell& shell, wl_surface& surface, const Wishes& wishes);

    void configure(std::uint32_t serial, const QSize& size);
    void close();

    wl_surface& m_surface;
    WaylandHandle<zwlr_layer_surface_v1> m_role;
    QSize m_size; // empty until the compositor has told it
    bool m_isClosed = false;
    bool m_hasKeyboard;
};

} // namespace korvane
