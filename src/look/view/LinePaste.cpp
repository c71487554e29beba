#include "look/view/LinePaste.h"

#include "look/view/PanelMenu.h"

#include <QAbstractItemView>
#include <QChildEvent>
#include <QCompleter>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>

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

    /// Serves the fields that a list makes when a name in it is edited.
    class EditorWatch : public QObject {
    public:
        EditorWatch(QWidget& viewport, TextReader reader)
            : QObject(&viewport)
            , m_reader(std::move(reader))
        {
            viewport.installEventFilter(this);
        }

    protected:
        bool eventFilter(QObject* watched, QEvent* event) override
        {
            // At its polishing a child is a widget of its whole class.
            if (event->type() == QEvent::ChildPolished)
                if (auto* const field
                    = qobject_cast<QLineEdit*>(static_cast<QChildEvent*>(event)->child())) {
                    field->setAcceptDrops(false);
                    LinePaste::serve(*field, m_reader);
                }
            return QObject::eventFilter(watched, event);
        }

    private:
        TextReader m_reader;
    };

} // namespace

LinePaste::LinePaste(QLineEdit& field, TextReader reader)
    : m_field(field)
    , m_reader(std::move(reader))
{
}

void LinePaste::paste()
{
    if (!m_reader)
        return;
    m_reader([this, wanted = std::weak_ptr(m_isWanted)](const QString& text) {
        // An empty answer is no text to put in the place of what is selected.
        if (!wanted.expired() && !text.isEmpty())
            m_field.insert(onOneLine(text));
    });
}

void LinePaste::forget()
{
    m_isWanted = std::make_shared<bool>(true);
}

void LinePaste::showMenu(const QPoint& place)
{
    auto* menu = PanelMenu::make(&m_field);
    const auto add = [menu](std::string_view title, bool isEnabled, auto action) {
        menu->addLine(title, action)->setEnabled(isEnabled);
    };
    add("Undo", m_field.isUndoAvailable(), [this] { m_field.undo(); });
    add("Redo", m_field.isRedoAvailable(), [this] { m_field.redo(); });
    menu->addSeparator();
    add("Cut", m_field.hasSelectedText(), [this] { m_field.cut(); });
    add("Copy", m_field.hasSelectedText(), [this] { m_field.copy(); });
    add("Paste", true, [this] { paste(); });
    menu->addSeparator();
    add("Select All", !m_field.text().isEmpty(), [this] { m_field.selectAll(); });
    menu->popup(place);
}

void LinePaste::serve(QLineEdit& field, const TextReader& reader)
{
    auto* const filter = std::make_unique<LinePaste>(field, reader).release();
    filter->setParent(&field); // the field's from here on
    field.installEventFilter(filter);
    // The list of proposals hands its keys to the field behind the filter's back.
    if (auto* const completer = field.completer())
        completer->popup()->installEventFilter(filter);
}

bool LinePaste::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        if (!static_cast<QKeyEvent*>(event)->matches(QKeySequence::Paste))
            return false;
        paste();
        return true;
    case QEvent::MouseButtonRelease: // it would insert what is selected in another program
        return watched == &m_field
            && static_cast<QMouseEvent*>(event)->button() == Qt::MiddleButton;
    case QEvent::ContextMenu:
        if (watched != &m_field)
            return false;
        showMenu(static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    default:
        return false;
    }
}

void keepFromWaiting(QWidget& dialog, const TextReader& reader)
{
    for (auto* const part : dialog.findChildren<QWidget*>())
        part->setAcceptDrops(false);
    for (auto* const field : dialog.findChildren<QLineEdit*>())
        LinePaste::serve(*field, reader);
    for (const auto* const list : dialog.findChildren<QAbstractItemView*>())
        static_cast<void>(new EditorWatch(*list->viewport(), reader)); // the viewport's
}

} // namespace korvane
