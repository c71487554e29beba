#pragma once

#include <QScrollBar>

namespace korvane {

/// The bar at the edge of a page that scrolls: a thumb without a ground or arrows, and nothing at all
/// where there is nothing to scroll. It always takes its room, so that every page is equally wide.
class SlimScrollBar : public QScrollBar {
public:
    static constexpr int thickness = 10;

    explicit SlimScrollBar(QWidget* parent, Qt::Orientation orientation = Qt::Vertical);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace korvane
