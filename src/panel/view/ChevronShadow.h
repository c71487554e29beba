#pragma once

#include <QWidget>

namespace korvane {

/// The soft shadow of a chevron. It lies outside of what can be clicked, so it is a widget that the
/// pointer does not see.
class ChevronShadow : public QWidget {
public:
    explicit ChevronShadow(QWidget* parent);

    void placeUnder(const QRect& chevron);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace korvane
