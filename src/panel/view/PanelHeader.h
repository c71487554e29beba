#pragma once

#include <QWidget>

namespace korvane {

/// The panel's head: the program's name.
class PanelHeader : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace korvane
