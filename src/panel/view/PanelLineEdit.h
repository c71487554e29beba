#pragma once

#include <QLineEdit>
#include <QString>

#include <functional>

namespace korvane {

/// Fetches the clipboard's text and answers later, once, without ever waiting for its owner; an
/// empty text when there is none.
using TextReader = std::function<void(std::function<void(QString)>)>;

/// A line to type in, without frame or ground. The toolkit's own field waits for the program that
/// owns the clipboard, even only to enable "Paste" in its menu; this one asks a reader instead, so
/// that a program that hangs cannot hold up the panel. Line ends in a pasted text become blanks.
class PanelLineEdit : public QLineEdit {
public:
    PanelLineEdit(TextReader reader, QWidget* parent);

    /// Asks the reader, and puts its answer where the cursor then stands.
    void pasteText();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    TextReader m_reader;
};

} // namespace korvane
