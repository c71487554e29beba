#include "look/view/PanelLineEdit.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include <utility>

namespace korvane {

PanelLineEdit::PanelLineEdit(TextReader reader, QWidget* parent)
    : QLineEdit(parent)
    , m_paste(*this, std::move(reader))
{
    setFrame(false);
    setAcceptDrops(false); // a drop too would wait for the program that it comes from
    auto clear = palette();
    clear.setColor(QPalette::Base, Qt::transparent);
    setPalette(clear);
}

void PanelLineEdit::keyPressEvent(QKeyEvent* event)
{
    // The Super key's own press carries it too, and would do so again.
    if (event->modifiers().testFlag(Qt::MetaModifier) && event->key() != Qt::Key_Meta) {
        const auto held = (event->modifiers() & ~Qt::MetaModifier) | Qt::ControlModifier;
        QKeyEvent asCtrl(event->type(), event->key(), held, QString(), event->isAutoRepeat());
        keyPressEvent(&asCtrl);
        event->setAccepted(asCtrl.isAccepted());
    } else if (event->matches(QKeySequence::Paste)) {
        pasteText();
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

void PanelLineEdit::hideEvent(QHideEvent* event)
{
    m_paste.forget();
    QLineEdit::hideEvent(event);
}

void PanelLineEdit::mouseReleaseEvent(QMouseEvent* event)
{
    // The middle button would insert what is selected in another program, and wait for it.
    if (event->button() == Qt::MiddleButton)
        event->accept();
    else
        QLineEdit::mouseReleaseEvent(event);
}

void PanelLineEdit::contextMenuEvent(QContextMenuEvent* event)
{
    m_paste.showMenu(event->globalPos());
}

} // namespace korvane
