#pragma once

#include "look/view/EasedValue.h"
#include "settings/view/RingedButton.h"

#include <functional>

namespace korvane {

/// A switch, 34 by 20 points: on or off. The space bar, Return and a click turn it.
class Switch : public RingedButton {
public:
    explicit Switch(MainLoop& loop, QWidget* parent = nullptr);

    bool isOn() const { return isChecked(); }
    /// Shows another state, of which `onTurned` is not told.
    void setOn(bool isOn);

    /// The user has turned it. It shows the new state already.
    std::function<void(bool isOn)> onTurned;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& at) const override;

private:
    bool m_isShowing = false; ///< it is not the user who turns it just then
    EasedValue m_thumb;       ///< 0: off, 1: on
};

} // namespace korvane
