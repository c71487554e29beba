#include "settings/view/KeyboardUse.h"

#include <QFocusEvent>

#include <utility>

namespace korvane {

namespace {

    /// What the event says of the user's ways; what it is now, where it says nothing.
    bool isByKeyboard(const QEvent& event, bool now)
    {
        switch (event.type()) {
        case QEvent::KeyPress:
            return true;
        case QEvent::MouseButtonPress:
            return false;
        case QEvent::FocusIn:
            break;
        default:
            return now;
        }
        switch (static_cast<const QFocusEvent&>(event).reason()) {
        case Qt::MouseFocusReason:
            return false;
        case Qt::ActiveWindowFocusReason: // the window comes back as it was
        case Qt::PopupFocusReason:
        case Qt::MenuBarFocusReason:
            return now;
        default:
            return true;
        }
    }

} // namespace

bool KeyboardUse::note(const QEvent& event)
{
    const bool isShown = isByKeyboard(event, m_isShown);
    return std::exchange(m_isShown, isShown) != isShown;
}

} // namespace korvane
