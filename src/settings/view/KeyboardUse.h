#pragma once

class QEvent;

namespace korvane {

/// Whether the user goes about a control by the keyboard, which then shows a ring around what has the
/// keyboard. A click gives the control the keyboard as well, but whoever has clicked knows where; the ring
/// comes with the first key.
class KeyboardUse {
public:
    /// Takes what the control is told by the toolkit.
    /// @return whether the answer to `isShown` is another one now
    bool note(const QEvent& event);
    bool isShown() const { return m_isShown; }

private:
    bool m_isShown = true;
};

} // namespace korvane
