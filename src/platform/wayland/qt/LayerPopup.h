#pragma once

#include "look/view/PopupHost.h"
#include "platform/wayland/qt/LayerHandles.h"

#include <QPoint>

#include <cstdint>
#include <memory>
#include <optional>

namespace korvane {

class LayerShell;
class LayerSurface;

/// The role of a menu's surface above a surface that covers an output (xdg-shell's popup, whose parent the
/// layer shell tells). A further surface of the same layer would not do: some compositors draw the newer
/// one below. It has to end before the surface that it stands above.
class LayerPopup : public PopupHost::Standing {
public:
    /// @param popup  about to be shown; its geometry is that of the output's, and follows where the
    ///               compositor has found room for it
    /// @return none when the compositor refuses, or keeps silent
    static std::unique_ptr<LayerPopup> make(LayerShell& shell, LayerSurface& under, QWidget& popup);
    ~LayerPopup() override;

private:
    explicit LayerPopup(QWidget& popup);

    bool place(LayerShell& shell, LayerSurface& under, wl_surface& surface);

    QWidget& m_popup;
    WaylandHandle<xdg_surface> m_surface;
    WaylandHandle<xdg_popup> m_role; // ends before the surface's part of it
    std::optional<QPoint> m_place;
    bool m_isConfigured = false;
};

} // namespace korvane
