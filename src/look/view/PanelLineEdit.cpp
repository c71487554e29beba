#include "look/view/PanelLineEdit.h"

#include "look/view/PanelMenu.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include <memory>
#include <string_view>
#include <utility>

namespace korvane {

namespace {

    QString onOneLine(QString text)
    {
        text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
        for (auto& character : text) {
            if (character == u'\n' || character == u'\r' || character == QChar::LineSeparator
                || character == QChar::ParagraphSeparator)
                character = u' ';
        }
        return text;
    }

} // namespace

PanelLineEdit::PanelLineEdit(TextReader reader, QWidget* parent)
    : QLineEdit(parent)
    , m_reader(std::move(reader))
{
    setFrame(false);
    setAcceptDrops(false); // a drop too would wait for the program that it comes from
    auto clear = palette();
    clear.setColor(QPalette::Base, Qt::transparent);
    setPalette(clear);
}

void PanelLineEdit::pasteText()
{
    if (!m_reader)
        return;
    m_reader([this, showing = std::weak_ptr(m_showing)](const QString& text) {
        // An empty answer is no text to put in the place of what is selected.
        if (!showing.expired() && !text.isEmpty())
            insert(onOneLine(text));
    });
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
    m_showing = std::make_shared<bool>(true);
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
    auto* menu = PanelMenu::make(this);
    const auto add = [menu](std::string_view title, bool isEnabled, auto action) {
        menu->addLine(title, action)->setEnabled(isEnabled);
    };
    add("Undo", isUndoAvailable(), [this] { undo(); });
    add("Redo", isRedoAvailable(), [this] { redo(); });
    menu->addSeparator();
    add("Cut", hasSelectedText(), [this] { cut(); });
    add("Copy", hasSelectedText(), [this] { copy(); });
    add("Paste", true, [this] { pasteText(); });
    menu->addSeparator();
    add("Select All", !text().isEmpty(), [this] { selectAll(); });
    menu->popup(event->globalPos());
}

} // namespace korvane
