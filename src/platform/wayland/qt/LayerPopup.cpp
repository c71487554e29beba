#include "platform/wayland/qt/LayerPopup.h"

#include "platform/wayland/qt/LayerShell.h"
#include "platform/wayland/qt/LayerSurface.h"

#include <QWindow>

namespace korvane {

namespace {

    WaylandHandle<xdg_positioner> positioner(LayerShell& shell, const QRect& place)
    {
        WaylandHandle<xdg_positioner> made(xdg_wm_base_create_positioner(shell.popupBase()));
        xdg_positioner_set_size(made.get(), place.width(), place.height());
        // The smallest rectangle that there is to hang from.
        xdg_positioner_set_anchor_rect(made.get(), place.x(), place.y(), 1, 1);
        xdg_positioner_set_anchor(made.get(), XDG_POSITIONER_ANCHOR_TOP_LEFT);
        xdg_positioner_set_gravity(made.get(), XDG_POSITIONER_GRAVITY_BOTTOM_RIGHT);
        xdg_positioner_set_constraint_adjustment(made.get(),
            XDG_POSITIONER_CONSTRAINT_ADJUSTMENT_SLIDE_X
                | XDG_POSITIONER_CONSTRAINT_ADJUSTMENT_SLIDE_Y);
        return made;
    }

    /// Where the host's window stands as far as the toolkit knows.
    QPoint originOf(const QWidget& popup)
    {
        const auto* const parent = popup.parentWidget();
        return parent != nullptr ? parent->window()->geometry().topLeft() : QPoint();
    }

} // namespace

std::unique_ptr<LayerPopup> LayerPopup::make(LayerShell& shell, LayerSurface& under, QWidget& popup)
{
    popup.winId(); // has its window be made
    auto* const surface = LayerShell::surfaceOf(*popup.windowHandle());
    std::unique_ptr<LayerPopup> made(surface != nullptr ? new LayerPopup(popup) : nullptr);
    return made && made->place(shell, under, *surface) ? std::move(made) : nullptr;
}

LayerPopup::LayerPopup(QWidget& popup)
    : m_popup(popup)
{
}

LayerPopup::~LayerPopup() = default;

bool LayerPopup::place(LayerShell& shell, LayerSurface& under, wl_surface& surface)
{
    static constexpr xdg_surface_listener surfaceListener {
        .configure =
            [](void* self, xdg_surface* configured, std::uint32_t serial) {
                xdg_surface_ack_configure(configured, serial);
                static_cast<LayerPopup*>(self)->m_isConfigured = true;
            },
    };
    static constexpr xdg_popup_listener popupListener {
        .configure = [](void* self, xdg_popup*, std::int32_t x, std::int32_t y, std::int32_t,
                         std::int32_t) { static_cast<LayerPopup*>(self)->m_place = QPoint(x, y); },
        // It takes no grab, so nobody else is told of a reason to close it.
        .popup_done =
            [](void* self, xdg_popup*) {
                QMetaObject::invokeMethod(&static_cast<LayerPopup*>(self)->m_popup, &QWidget::close,
                    Qt::QueuedConnection);
            },
        .repositioned = [](void*, xdg_popup*, std::uint32_t) {},
    };
    const QPoint origin = originOf(m_popup);
    const auto wanted = positioner(shell, m_popup.geometry().translated(-origin));
    m_surface.reset(xdg_wm_base_get_xdg_surface(shell.popupBase(), &surface));
    xdg_surface_add_listener(m_surface.get(), &surfaceListener, this);
    m_role.reset(xdg_surface_get_popup(m_surface.get(), nullptr, wanted.get()));
    xdg_popup_add_listener(m_role.get(), &popupListener, this);
    zwlr_layer_surface_v1_get_popup(under.get(), m_role.get());
    wl_surface_commit(&surface);
    if (!shell.await([this] { return m_isConfigured; }))
        return false;
    LayerShell::handOver(m_surface.get());
    LayerShell::handOver(m_role.get());
    if (m_place)
        m_popup.move(*m_place + origin);
    return true;
}

} // namespace korvane
