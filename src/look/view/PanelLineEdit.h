#pragma once

#include "look/view/LinePaste.h"

#include <QLineEdit>

namespace korvane {

/// A line to type in, without frame or ground, that pastes without waiting (see `LinePaste`). The Super
/// key does what Ctrl does.
class PanelLineEdit : public QLineEdit {
public:
    PanelLineEdit(TextReader reader, QWidget* parent);

    /// Asks the reader, and puts its answer where the cursor then stands; nothing when the field has
    /// been hidden meanwhile, as its next showing is another beginning.
    void pasteText() { m_paste.paste(); }

protected:
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    LinePaste m_paste;
};

} // namespace korvane
