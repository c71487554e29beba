#pragma once

#include "settings/view/KeyboardUse.h"
#include "settings/view/Lettered.h"

#include <QAbstractButton>

class QPainter;
class QRectF;

namespace korvane {

/// A button of the settings: while it has the keyboard, whoever goes by the keyboard sees a ring. Return
/// and Enter press it, as the space bar does.
class RingedButton : public QAbstractButton, public Lettered {
public:
    using QAbstractButton::QAbstractButton;

    /// Has Alt with a letter press it. To give it another text takes the letter away. The letters of one
    /// page differ, from each other and from those of the row of pages.
    void setLetter(QChar letter);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /// Paints the ring, if it is to be seen now.
    void paintRing(QPainter& painter, const QRectF& around, double radius) const;
    /// Paints the ground of a button that has one only while the pointer is over it, or it is pressed.
    void paintFlatGround(QPainter& painter, double radius) const;

private:
    KeyboardUse m_use;
};

} // namespace korvane
