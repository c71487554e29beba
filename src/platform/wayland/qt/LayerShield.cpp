#include "platform/wayland/qt/LayerShield.h"

#include "platform/wayland/qt/LayerShell.h"
#include "platform/wayland/qt/LayerSurface.h"

#include <QMouseEvent>
#include <QPainter>

namespace korvane {

LayerShield::LayerShield(LayerShell& shell, QScreen& screen)
{
    setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint
        | Qt::WindowDoesNotAcceptFocus);
    auto format = requestedFormat();
    format.setAlphaBufferSize(8);
    setFormat(format);
    setScreen(&screen);
    setGeometry(screen.geometry());
    auto* const surface = LayerShell::surfaceOf(*this);
    auto* const output = LayerShell::outputOf(screen);
    if (surface == nullptr || output == nullptr)
        return;
    m_layer = LayerSurface::make(shell, *surface, { .output = output });
    if (!m_layer)
        return; // clicks there are not heard; the panel is closed by its own keys
    const auto cover
        = [this, &screen] { setGeometry(QRect(screen.geometry().topLeft(), m_layer->size())); };
    m_resized = m_layer->resized.connect(cover);
    cover();
    show();
}

LayerShield::~LayerShield()
{
    withdraw();
}

void LayerShield::withdraw()
{
    m_layer.reset();
    destroy();
}

bool LayerShield::event(QEvent* event)
{
    // An exposure may still be on its way to a window that has been withdrawn, and the toolkit would paint
    // on a surface that is not there.
    const bool isPainting = event->type() == QEvent::Expose || event->type() == QEvent::Paint
        || event->type() == QEvent::UpdateRequest;
    return (isPainting && !m_layer) || QRasterWindow::event(event);
}

void LayerShield::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.fillRect(QRect({}, size()), Qt::transparent);
}

void LayerShield::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton || event->button() == Qt::RightButton)
        pressed();
}

} // namespace korvane
