#pragma once

#include "app/view/ApplicationTheme.h"
#include "look/view/Symbols.h"
#include "settings/view/ControlKit.h"
#include "support/Input.h"
#include "support/ManualLoop.h"
#include "support/Parts.h"

#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QWidget>

#include <memory>
#include <utility>

namespace korvane::test {

/// What the controls are made with, and a window to show them in.
struct KitFixture {
    KitFixture()
    {
        window.resize(520, 420);
        window.show();
        QApplication::setActiveWindow(&window);
    }
    ~KitFixture() { QApplication::setPalette(applicationPalette(ColourScheme::light)); }
    KitFixture(const KitFixture&) = delete;
    KitFixture& operator=(const KitFixture&) = delete;

    /// Puts a control into the window, where it is seen.
    template <typename Control>
    Control& show(std::unique_ptr<Control> control, QPoint at = { 20, 20 })
    {
        auto& shown = *control;
        control.release()->setParent(&window);
        shown.move(at);
        shown.resize(shown.sizeHint().isValid() ? shown.sizeHint() : shown.size());
        shown.show();
        settle();
        return shown;
    }
    /// Presses the Tab key where the keyboard is; what has it then.
    QWidget& tab()
    {
        auto* const now = QApplication::focusWidget();
        typeKey(now ? *now : window, Qt::Key_Tab);
        return QApplication::focusWidget() ? *QApplication::focusWidget() : window;
    }
    /// What assistive technology is told of a widget.
    static QAccessibleInterface& access(QWidget& widget)
    {
        return *QAccessible::queryAccessibleInterface(&widget);
    }
    /// How a widget is painted just then.
    static QImage look(QWidget& widget) { return widget.grab().toImage(); }
    static void darken() { QApplication::setPalette(applicationPalette(ColourScheme::dark)); }

    ManualLoop loop;
    Symbols symbols;
    QString clipboard;
    ControlKit kit { loop, symbols, [this](const auto& answer) { answer(clipboard); } };
    QWidget window;
};

} // namespace korvane::test
