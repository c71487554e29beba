#pragma once

#include "look/view/PanelLineEdit.h"
#include "model/ClipStore.h"

#include <QWidget>

namespace korvane {

class Symbols;

/// The panel's search field: every change of its text is a change of the store's search text.
/// Whenever its window gets the keyboard, the field has it, so that one can type at once.
class SearchTextField : public QWidget {
public:
    SearchTextField(ClipStore& store, Symbols& symbols, TextReader reader, QWidget* parent);

    PanelLineEdit& field() { return m_field; }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    QRect ground() const;
    void dress();

    Symbols& m_symbols;
    PanelLineEdit m_field;
    Connection m_searchChanged;
};

} // namespace korvane
