#pragma once

#include "app/view/Overlay.h"

#include <QPointer>
#include <QScreen>

#include <memory>
#include <vector>

namespace korvane {

class LayerShell;
class LayerShield;
class LayerSurface;
class Log;

/// The overlay of a compositor with a layer shell.
class LayerOverlay : public Overlay {
public:
    LayerOverlay(LayerShell& shell, Log& log);
    ~LayerOverlay() override;
    LayerOverlay(const LayerOverlay&) = delete;
    LayerOverlay& operator=(const LayerOverlay&) = delete;

    std::optional<Sizes> look() override;
    bool show(QWidget& window) override;
    void hide() override;
    void setKeyboard(bool isWanted) override;
    std::unique_ptr<PopupHost::Standing> stand(QWidget& popup) override;

private:
    /// A press on a shield has it withdrawn: it must outlive the press.
    struct Later {
        void operator()(LayerShield* shield) const;
    };

    void shieldOthers(const QScreen* own);

    LayerShell& m_shell;
    Log& m_log;
    QPointer<QScreen> m_screen;  // that was looked at last
    QWidget* m_window = nullptr; // while it is shown
    std::unique_ptr<LayerSurface> m_layer;
    std::vector<std::unique_ptr<LayerShield, Later>> m_shields;
    std::vector<Connection> m_connections;
};

} // namespace korvane
