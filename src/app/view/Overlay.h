#pragma once

#include "look/view/PopupHost.h"
#include "model/Signal.h"

#include <QSize>

#include <memory>
#include <optional>

class QWidget;

namespace korvane {

/// A surface over the whole of one output, above every window and bar: for desktops on which no window
/// of ours stands where it is put. What is transparent of the surface shows what lies under it, and gets
/// the clicks nevertheless.
class Overlay {
public:
    /// In points.
    struct Sizes {
        QSize output;
        QSize usable; ///< what the bars leave; where they stand is not told
    };

    virtual ~Overlay() = default;

    /// The output that the user works on now, which the next showing is to be on; none where the desktop
    /// does not tell.
    virtual std::optional<Sizes> look() = 0;
    /// Shows a window on the output that was looked at last, resized to it, with the keyboard. It has the
    /// flags of a frameless tool outside the window manager's reach, and a translucent ground.
    /// @return whether the desktop has given it a place; it is not shown otherwise
    virtual bool show(QWidget& window) = 0;
    /// Hides the window; the keyboard goes back to whom it was taken from.
    virtual void hide() = 0;
    /// Whether the window gets the keyboard, or an ordinary window of ours does.
    virtual void setKeyboard(bool isWanted) = 0;
    /// Gives a popup of the window its place; see `PopupHost::stand`.
    virtual std::unique_ptr<PopupHost::Standing> stand(QWidget& popup) = 0;

    /// The left or right button was pressed on another output while the window is shown.
    Signal<> pressedElsewhere;
    /// The desktop has taken the surface away, as it does when the output has gone. The window is hidden.
    Signal<> closed;
};

} // namespace korvane
