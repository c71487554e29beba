#pragma once

#include "model/Signal.h"

#include <QRasterWindow>
#include <QScreen>

#include <memory>

namespace korvane {

class LayerShell;
class LayerSurface;

/// A transparent surface over an output that the panel is not on: a press there is a click outside. No
/// client hears of the clicks on another one's windows. It never has the keyboard.
class LayerShield : public QRasterWindow {
public:
    LayerShield(LayerShell& shell, QScreen& screen);
    ~LayerShield() override;
    /// Ends the role, and with it the surface; it is of no more use then.
    void withdraw();

    /// The left or right button went down on it.
    Signal<> pressed;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    std::unique_ptr<LayerSurface> m_layer;
    Connection m_resized;
};

} // namespace korvane
