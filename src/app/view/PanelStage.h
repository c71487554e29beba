#pragma once

class QWidget;

namespace korvane {

class KorPanel;

/// Where the panel and its preview stand on the desktop: each as a window by itself, or both on one
/// ground that covers the screen.
class PanelStage {
public:
    virtual ~PanelStage() = default;

    /// What the panels are to be made on; null where each is a window by itself.
    virtual QWidget* ground() = 0;
    /// Shows it above all that stands already. The panel, not its preview, gets the keyboard.
    virtual void show(KorPanel& panel) = 0;
    /// Hides it; the panel gives the keyboard back.
    virtual void hide(KorPanel& panel) = 0;
    /// Whether it is shown, or is about to be.
    virtual bool isVisible(const KorPanel& panel) const = 0;
    /// The user has come to the panel by the pointer: it is to have the keyboard again.
    virtual void takeKeyboard(KorPanel& panel) = 0;
};

} // namespace korvane
