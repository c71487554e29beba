#pragma once

#include "look/view/PanelLineEdit.h"

#include <QWidget>

#include <cstdint>
#include <functional>
#include <optional>

namespace korvane {

/// A field for a whole number, 80 points wide. It takes digits only; whoever it belongs to decides
/// what becomes of a number out of range.
class NumberField : public QWidget {
public:
    /// @param mostDigits  how many digits can be typed
    NumberField(TextReader clipboardText, int mostDigits, QWidget* parent = nullptr);

    /// What stands in it; none: nothing, or no number that fits.
    std::optional<std::int64_t> number() const;
    void setNumber(std::int64_t number);

    /// The user has pressed Return, which gives up the keyboard, or has gone to something else in the
    /// window. Not told when the window closes or another one comes to the front, deliberately: what is
    /// being typed is then still being typed, or is lost.
    std::function<void()> onCommit;

    QLineEdit& edit() const;
    QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    class Edit;

    void dress();

    Edit* m_edit; // its child
};

} // namespace korvane
