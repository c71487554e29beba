#pragma once

#include "model/Preferences.h"
#include "model/Signal.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

struct ClipItem;

/// A point and a rectangle in points, with the origin at the bottom left and y upward: the
/// coordinates in which the program places its windows. They are relative to the bottom left corner
/// of the screen that the status item is on; the backend turns them over, once.
struct Point {
    double x = 0;
    double y = 0;

    friend bool operator==(const Point&, const Point&) = default;
};

struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    double left() const { return x; }
    double right() const { return x + width; }
    double bottom() const { return y; }
    double top() const { return y + height; }
    double middleX() const { return x + width / 2; }
    double middleY() const { return y + height / 2; }

    friend bool operator==(const Rect&, const Rect&) = default;
};

/// One line of a menu; an empty title is a separator.
struct MenuItem {
    std::string title;
    /// The key that chooses it together with Command, empty for none.
    std::string keyEquivalent;
    std::function<void()> action;
};

/// The program's item in the status bar (the tray).
class StatusItem {
public:
    virtual ~StatusItem() = default;

    /// Shows one of the program's own symbols ("doc.on.clipboard", "lock.doc").
    virtual void setImage(std::string_view symbol) = 0;
    /// The text beside the icon: empty, or a blank and a number.
    virtual void setTitle(std::string_view title) = 0;
    /// The menu of a right click; asked for anew each time that it opens.
    virtual void setMenu(std::function<std::vector<MenuItem>()> menu) = 0;

    /// The user clicked it with the left button.
    Signal<> clicked;
};

/// The colours of all our windows.
class Appearance {
public:
    virtual ~Appearance() = default;

    /// Light, dark, or as the desktop has it now and later on.
    virtual void apply(Theme theme) = 0;
};

/// The screen that the status item is on.
class Screens {
public:
    virtual ~Screens() = default;

    struct Frames {
        /// The part of the screen that no bar covers.
        Rect visible;
        /// The status item's own rectangle: the icon's, else around the place of the last click on
        /// it, else at the right end of the visible frame's top edge.
        Rect statusItem;
    };

    /// How it is at this moment. Bars and screens come and go, so it is asked at each opening.
    virtual Frames look() = 0;

    /// Only now, after the look, is it known where the status item is: what stands there is to be placed
    /// by a further look.
    Signal<> found;
};

/// A window of ours that is placed, shown and hidden by the program.
class PlacedWindow {
public:
    virtual ~PlacedWindow() = default;

    virtual Rect frame() const = 0;
    virtual void setFrame(const Rect& frame) = 0;
    /// Its frame at the size that it has where there is room for it.
    virtual Rect wantedFrame() const { return frame(); }
    /// Shows it above all others; a window that takes keys gets the keyboard.
    virtual void show() = 0;
    /// Hides it. A window that had the keyboard gives it up.
    virtual void hide() = 0;
    virtual bool isVisible() const = 0;

    /// The desktop has put a frame around it after it was shown, by which it has become larger.
    Signal<> framed;
};

/// The window beside the panel that shows the text of one clip. It takes no key and no click.
class PreviewWindow : public PlacedWindow {
public:
    /// Fills it. Its place does not change by that, nor whether it is shown.
    virtual void setClip(const ClipItem& clip) = 0;
    /// How high the clip's text is when it is laid out in lines of this width, in whole points; all
    /// of what is shown of the text, whether the window has room for it or not.
    virtual double textHeight(double width) = 0;
};

/// Tells of mouse presses while the panel is open.
class OutsideClicks {
public:
    virtual ~OutsideClicks() = default;

    /// Begins and ends to watch.
    virtual void watch() = 0;
    virtual void unwatch() = 0;

    /// The left or right button was pressed outside every window of ours.
    Signal<> pressed;
};

} // namespace korvane
