#pragma once

#include <QLineEdit>
#include <QString>

#include <functional>
#include <memory>

namespace korvane {

/// Fetches the clipboard's text and answers later, once, without ever waiting for its owner; an
/// empty text when there is none.
using TextReader = std::function<void(std::function<void(QString)>)>;

/// A line to type in, without frame or ground. The toolkit's own field waits for the program that
/// owns the clipboard, even only to enable "Paste" in its menu; this one asks a reader instead, so
/// that a program that hangs cannot hold up the panel. Line ends in a pasted text become blanks. The
/// Super key does what Ctrl does.
class PanelLineEdit : public QLineEdit {
public:
    PanelLineEdit(TextReader reader, QWidget* parent);

    /// Asks the reader, and puts its answer where the cursor then stands; nothing when the field has
    /// been hidden meanwhile, as its next showing is another beginning.
    void pasteText();

protected:
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    TextReader m_reader;
    /// Shared with the answers under way, which come to nothing when it is another one.
    std::shared_ptr<bool> m_showing = std::make_shared<bool>(true);
};

} // namespace korvane
