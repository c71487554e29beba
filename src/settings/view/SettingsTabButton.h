#pragma once

#include "settings/SettingsTab.h"
#include "settings/view/RingedButton.h"

namespace korvane {

class Symbols;

/// One of the pages in the row above them: a symbol over the page's name.
class SettingsTabButton : public RingedButton {
public:
    static constexpr int leastWidth = 74;
    static constexpr int wholeHeight = 54;

    SettingsTabButton(SettingsTab tab, Symbols& symbols, QWidget* parent);

    SettingsTab tab() const { return m_tab; }

    QSize sizeHint() const override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    SettingsTab m_tab;
    Symbols& m_symbols;
};

} // namespace korvane
