#pragma once

#include "panel/ClipScrollTracker.h"

#include <QAbstractButton>
#include <QPoint>

#include <functional>
#include <optional>

namespace korvane {

class Symbols;

/// A small button that lies over an edge of the list and points to what is beyond it. Only a pointer
/// that moves has come to it: one that rests where a chevron appears scrolls nothing.
class Chevron : public QAbstractButton {
public:
    static constexpr int chevronWidth = 28;
    static constexpr int chevronHeight = 20;

    struct Events {
        std::function<void()> entered;
        std::function<void()> left;
        std::function<void()> clicked;
    };

    /// @param list  gets the wheel's turns, as if the chevron were not there
    Chevron(
        ScrollDirection direction, Symbols& symbols, QWidget& list, Events events, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void pointerAt(const QPoint& global);
    void pointerGone();

    ScrollDirection m_direction;
    Symbols& m_symbols;
    QWidget& m_list;
    Events m_events;
    bool m_isHovered = false;
    std::optional<QPoint> m_restingAt; ///< where the pointer was when the chevron appeared
};

} // namespace korvane
