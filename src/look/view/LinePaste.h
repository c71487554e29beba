#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <memory>

class QLineEdit;
class QPoint;
class QWidget;

namespace korvane {

/// Fetches the clipboard's text and answers later, once, without ever waiting for its owner; an
/// empty text when there is none.
using TextReader = std::function<void(std::function<void(QString)>)>;

/// Puts the clipboard's text into a field. The toolkit's own way waits for the program that owns the
/// clipboard, even only to enable "Paste" in a menu; this one asks a reader instead, so that a program
/// that hangs cannot hold up ours. Line ends in a pasted text become blanks.
class LinePaste : public QObject {
public:
    /// @param field  outlives this
    LinePaste(QLineEdit& field, TextReader reader);

    /// Asks the reader, and puts its answer where the cursor then stands.
    void paste();
    /// What has been asked for and not come yet is no longer wanted.
    void forget();
    /// Opens the field's menu at a place of the desktop.
    void showMenu(const QPoint& place);

    /// Has a field of the toolkit's paste like this, by keys and by its menu, which is ours then. The
    /// middle button pastes nothing.
    static void serve(QLineEdit& field, const TextReader& reader);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLineEdit& m_field;
    TextReader m_reader;
    /// Shared with the answers under way, which come to nothing when it is another one.
    std::shared_ptr<bool> m_isWanted = std::make_shared<bool>(true);
};

/// Has nothing in a dialog of the toolkit's wait for other programs: its fields paste by the reader, those
/// too in which its lists have a name edited, and nothing takes what is dragged over it.
void keepFromWaiting(QWidget& dialog, const TextReader& reader);

} // namespace korvane
