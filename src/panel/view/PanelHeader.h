#pragma once

#include "hotkey/KeyCodes.h"
#include "model/Signal.h"
#include "panel/view/HeaderButton.h"

#include <QRectF>
#include <QWidget>

namespace korvane {

class PanelController;
class Symbols;

/// The panel's head: the program's name, a badge in private mode and the switch for it, the way to the
/// preferences, and the menu of the whole program. It follows private mode, whoever turns it over.
class PanelHeader : public QWidget {
public:
    PanelHeader(PanelController& controller, Symbols& symbols, QWidget* parent);

    /// A key that presses the button which has the focus, if one has.
    /// @return whether the press goes no further
    bool handle(const KeyPress& press);

    HeaderButton& privateModeSwitch() { return m_privateModeSwitch; }
    HeaderButton& settingsButton() { return m_settingsButton; }
    HeaderButton& menuButton() { return m_menuButton; }
    /// Where the badge of the private mode is; empty while that is off.
    QRectF badge() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void showPrivateMode(bool isPrivate);
    void openMenu();

    PanelController& m_controller;
    bool m_isPrivate = false;
    HeaderButton m_privateModeSwitch;
    HeaderButton m_settingsButton;
    HeaderButton m_menuButton;
    Connection m_privateModeChanged;
};

} // namespace korvane
