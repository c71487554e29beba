#include "platform/wayland/qt/LayerOverlay.h"

#include "model/Log.h"
#include "platform/wayland/qt/LayerPopup.h"
#include "platform/wayland/qt/LayerShell.h"
#include "platform/wayland/qt/LayerShield.h"
#include "platform/wayland/qt/LayerSurface.h"
#include "platform/wayland/qt/OutputLook.h"

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

namespace korvane {

LayerOverlay::LayerOverlay(LayerShell& shell, Log& log)
    : m_shell(shell)
    , m_log(log)
{
}

LayerOverlay::~LayerOverlay()
{
    hide();
}

std::optional<Overlay::Sizes> LayerOverlay::look()
{
    const auto seen = OutputLook::take(m_shell);
    m_screen = seen ? seen->screen : nullptr;
    const auto* const screen = m_screen ? m_screen.data() : QGuiApplication::primaryScreen();
    if (!seen || screen == nullptr)
        return std::nullopt;
    return Sizes { screen->size(), seen->usable.boundedTo(screen->size()) };
}

bool LayerOverlay::show(QWidget& window)
{
    hide();
    // A surface that was shown has had its role; the toolkit makes another one.
    auto* const handle = window.windowHandle();
    handle->destroy();
    // On its screen from the beginning, by its place too, or the first picture has another one's scale.
    if (m_screen) {
        handle->setScreen(m_screen);
        window.setGeometry(m_screen->geometry());
    }
    auto* const surface = LayerShell::surfaceOf(*handle);
    auto* const output = m_screen ? LayerShell::outputOf(*m_screen) : nullptr;
    if (surface != nullptr)
        m_layer
            = LayerSurface::make(m_shell, *surface, { .output = output, .takesKeyboard = true });
    if (!m_layer) {
        handle->destroy();
        m_log.line("Korvane: the compositor gives the panel no place");
        return false;
    }
    m_window = &window;
    const auto cover = [this] {
        const QPoint corner = m_screen ? m_screen->geometry().topLeft() : QPoint();
        m_window->setGeometry(QRect(corner, m_layer->size()));
    };
    cover();
    m_connections.push_back(m_layer->resized.connect(cover));
    m_connections.push_back(m_layer->closed.connect([this] { closed(); }));
    window.show();
    shieldOthers(m_screen ? m_screen.data() : QGuiApplication::primaryScreen());
    return true;
}

void LayerOverlay::Later::operator()(LayerShield* shield) const
{
    shield->withdraw();
    shield->deleteLater();
}

void LayerOverlay::shieldOthers(const QScreen* own)
{
    for (auto* const screen : QGuiApplication::screens()) {
        if (screen == own)
            continue;
        m_shields.emplace_back(std::make_unique<LayerShield>(m_shell, *screen).release());
        m_connections.push_back(m_shields.back()->pressed.connect([this] { pressedElsewhere(); }));
    }
}

void LayerOverlay::hide()
{
    if (m_window == nullptr)
        return;
    m_connections.clear();
    m_shields.clear();
    // The role ends before the surface does.
    m_layer.reset();
    auto* const window = std::exchange(m_window, nullptr);
    window->hide();
    window->windowHandle()->destroy();
}

void LayerOverlay::setKeyboard(bool isWanted)
{
    if (m_layer)
        m_layer->setKeyboard(isWanted);
}

std::unique_ptr<PopupHost::Standing> LayerOverlay::stand(QWidget& popup)
{
    return m_layer ? LayerPopup::make(m_shell, *m_layer, popup) : nullptr;
}

} // namespace korvane
