#pragma once

#include <QApplication>
#include <QContextMenuEvent>
#include <QHoverEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWidget>

namespace korvane::test {

/// What a user's hands do to a widget, without a display: the events go where the toolkit would
/// send them.
inline void movePointer(QWidget& widget, const QPointF& to)
{
    QMouseEvent move(
        QEvent::MouseMove, to, widget.mapToGlobal(to), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &move);
}
/// The pointer comes to the widget, or leaves it.
inline void hover(QWidget& widget, bool isOver)
{
    const QPointF at = isOver ? QPointF(widget.rect().center()) : QPointF(-1, -1);
    widget.setAttribute(Qt::WA_UnderMouse, isOver);
    QHoverEvent event(isOver ? QEvent::HoverEnter : QEvent::HoverLeave, at, widget.mapToGlobal(at),
        isOver ? QPointF(-1, -1) : at);
    QApplication::sendEvent(&widget, &event);
}
inline void press(QWidget& widget, const QPointF& at, Qt::MouseButton button = Qt::LeftButton)
{
    movePointer(widget, at);
    QMouseEvent down(
        QEvent::MouseButtonPress, at, widget.mapToGlobal(at), button, button, Qt::NoModifier);
    QApplication::sendEvent(&widget, &down);
}
inline void release(QWidget& widget, const QPointF& at, Qt::MouseButton button = Qt::LeftButton)
{
    QMouseEvent up(QEvent::MouseButtonRelease, at, widget.mapToGlobal(at), button, Qt::NoButton,
        Qt::NoModifier);
    QApplication::sendEvent(&widget, &up);
}
inline void click(QWidget& widget, const QPointF& at, Qt::MouseButton button = Qt::LeftButton)
{
    press(widget, at, button);
    release(widget, at, button);
}
/// Presses at one place, goes to another with the button held, and lets go there.
inline void drag(QWidget& widget, const QPointF& from, const QPointF& to)
{
    press(widget, from);
    QMouseEvent move(QEvent::MouseMove, to, widget.mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
        Qt::NoModifier);
    QApplication::sendEvent(&widget, &move);
    release(widget, to);
}
inline void rightClick(QWidget& widget, const QPointF& at)
{
    press(widget, at, Qt::RightButton);
    QContextMenuEvent menu(
        QContextMenuEvent::Mouse, at.toPoint(), widget.mapToGlobal(at.toPoint()), Qt::NoModifier);
    QApplication::sendEvent(&widget, &menu);
    release(widget, at, Qt::RightButton);
}
/// @param notches  of the wheel, towards the user; a touchpad sends fractions of one
inline void turnWheel(QWidget& widget, double notches)
{
    const QPointF at = widget.rect().center();
    QWheelEvent turn(at, widget.mapToGlobal(at), {}, { 0, static_cast<int>(-120 * notches) },
        Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &turn);
}
/// @param down   what a touchpad under two fingers tells, in points
/// @param phase  none for a wheel that only claims to tell points
inline void scrollPixels(QWidget& widget, int down, Qt::ScrollPhase phase = Qt::ScrollUpdate)
{
    const QPointF at = widget.rect().center();
    QWheelEvent turn(at, widget.mapToGlobal(at), { 0, -down }, { 0, -120 }, Qt::NoButton,
        Qt::NoModifier, phase, false);
    QApplication::sendEvent(&widget, &turn);
}
inline void typeKey(QObject& receiver, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
    const QString& text = {})
{
    QKeyEvent down(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(&receiver, &down);
    QKeyEvent up(QEvent::KeyRelease, key, modifiers, text);
    QApplication::sendEvent(&receiver, &up);
}
inline void typeText(QObject& receiver, const QString& text)
{
    for (const auto character : text)
        typeKey(receiver, character.toUpper().unicode(), Qt::NoModifier, character);
}

/// An input method, or a dead key, has put a text together.
inline void compose(QObject& receiver, const QString& preedit, const QString& committed)
{
    QInputMethodEvent composing(preedit, {});
    QApplication::sendEvent(&receiver, &composing);
    QInputMethodEvent done;
    done.setCommitString(committed);
    QApplication::sendEvent(&receiver, &done);
}

/// Counts how often a widget, or one within it, is painted.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget& widget)
    {
        widget.installEventFilter(this);
        for (auto* child : widget.findChildren<QWidget*>())
            child->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            ++count;
            area = static_cast<QPaintEvent*>(event)->rect();
        }
        return QObject::eventFilter(watched, event);
    }

    int count = 0;
    QRect area; ///< what was painted last
};

/// Lets the toolkit do everything that it has put off: layouts, repaints, deletions.
inline void settle()
{
    QApplication::sendPostedEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
}

} // namespace korvane::test
