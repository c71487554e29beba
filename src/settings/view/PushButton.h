#pragma once

#include "settings/view/RingedButton.h"

#include <functional>

namespace korvane {

/// A button with a text, as it stands on a page or under an alert.
class PushButton : public RingedButton {
public:
    enum class Tone {
        plain,
        destructive, ///< what cannot be undone
        chief,       ///< what Return does, in an alert
    };

    PushButton(const QString& text, std::function<void()> clicked, Tone tone = Tone::plain,
        QWidget* parent = nullptr);

    Tone tone() const { return m_tone; }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Tone m_tone;
};

} // namespace korvane
