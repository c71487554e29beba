#pragma once

#include "look/view/EasedValue.h"
#include "settings/Choice.h"

#include <QRectF>
#include <QWidget>

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// Some choices side by side, of which one is chosen. To the keyboard it is one stop: the arrows go
/// from choice to choice. To assistive technology it is a group of radio buttons.
class SegmentedPicker : public QWidget {
public:
    /// @param lines  in how many lines the choices stand, evenly shared out
    SegmentedPicker(
        MainLoop& loop, std::span<const Choice> choices, int lines = 1, QWidget* parent = nullptr);
    ~SegmentedPicker() override;

    /// The chosen value; empty when it is none of the choices.
    std::string value() const;
    /// Shows another choice, of which `onChosen` is not told. A value that is none of the choices
    /// leaves none chosen.
    void setValue(std::string_view value);

    /// The user has chosen. It shows the new choice already.
    std::function<void(std::string_view value)> onChosen;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    class Segment;

    Segment* chosen() const;
    void layOut();
    void slide();

    std::vector<Segment*> m_segments; // its children
    int m_lines;
    bool m_isShowing = false; ///< it is not the user who chooses just then
    QRectF m_from;            ///< where the chosen ground comes from
    EasedValue m_way;
};

} // namespace korvane
