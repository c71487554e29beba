#include "platform/wayland/qt/LayerSurface.h"

#include "platform/wayland/qt/LayerShell.h"

namespace korvane {

namespace {

    constexpr const char* scope = "korvane";
    constexpr std::uint32_t everyEdge = ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP
        | ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM | ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT
        | ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT;
    // What a surface wants of the room that others have reserved for themselves.
    constexpr std::int32_t nothingReserved = 0;
    constexpr std::int32_t overWhatIsReserved = -1;

    std::uint32_t interactivity(bool takesKeyboard)
    {
        return takesKeyboard ? ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_EXCLUSIVE
                             : ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_NONE;
    }

} // namespace

std::unique_ptr<LayerSurface> LayerSurface::make(
    LayerShell& shell, wl_surface& surface, const Wishes& wishes)
{
    std::unique_ptr<LayerSurface> made(new LayerSurface(shell, surface, wishes));
    auto* const role = made.get();
    if (!shell.await([role] { return !role->m_size.isEmpty() || role->m_isClosed; })
        || made->m_isClosed)
        return nullptr;
    LayerShell::handOver(made->get());
    return made;
}

LayerSurface::LayerSurface(LayerShell& shell, wl_surface& surface, const Wishes& wishes)
    : m_surface(surface)
    , m_role(zwlr_layer_shell_v1_get_layer_surface(
          shell.get(), &surface, wishes.output, ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY, scope))
    , m_hasKeyboard(wishes.takesKeyboard)
{
    static constexpr zwlr_layer_surface_v1_listener listener {
        .configure =
            [](void* self, zwlr_layer_surface_v1*, std::uint32_t serial, std::uint32_t width,
                std::uint32_t height) {
                static_cast<LayerSurface*>(self)->configure(
                    serial, { static_cast<int>(width), static_cast<int>(height) });
            },
        .closed
        = [](void* self, zwlr_layer_surface_v1*) { static_cast<LayerSurface*>(self)->close(); },
    };
    zwlr_layer_surface_v1_add_listener(m_role.get(), &listener, this);
    zwlr_layer_surface_v1_set_anchor(m_role.get(), everyEdge);
    zwlr_layer_surface_v1_set_exclusive_zone(
        m_role.get(), wishes.isOverBars ? overWhatIsReserved : nothingReserved);
    zwlr_layer_surface_v1_set_keyboard_interactivity(
        m_role.get(), interactivity(wishes.takesKeyboard));
    wl_surface_commit(&m_surface);
}

LayerSurface::~LayerSurface() = default;

void LayerSurface::configure(std::uint32_t serial, const QSize& size)
{
    zwlr_layer_surface_v1_ack_configure(m_role.get(), serial);
    const bool isFirst = m_size.isEmpty();
    if (size.isEmpty() || size == m_size)
        return;
    m_size = size;
    if (!isFirst)
        resized();
}

void LayerSurface::close()
{
    m_isClosed = true;
    closed();
}

void LayerSurface::setKeyboard(bool isWanted)
{
    if (m_hasKeyboard == isWanted)
        return;
    m_hasKeyboard = isWanted;
    zwlr_layer_surface_v1_set_keyboard_interactivity(m_role.get(), interactivity(isWanted));
    wl_surface_commit(&m_surface);
}

} // namespace korvane
