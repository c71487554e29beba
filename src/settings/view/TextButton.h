#pragma once

#include "settings/view/RingedButton.h"

#include <functional>

namespace korvane {

/// A button that is a small text without an edge, for what stands beside a control.
class TextButton : public RingedButton {
public:
    TextButton(const QString& text, std::function<void()> clicked, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace korvane
