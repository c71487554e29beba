#include "look/view/SheetDialog.h"

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <QWindow>

#include <algorithm>

namespace korvane {

namespace {

    /// A window that no window manager looks after: the panel, and what stands beside it. It goes at
    /// the next click elsewhere, and must take nothing along that the user has to answer.
    bool isPassing(const QWidget& window)
    {
        return window.windowFlags().testFlag(Qt::BypassWindowManagerHint);
    }

    /// The ordinary window that can be seen, where there is one.
    QWidget* ordinaryWindow()
    {
        const auto all = QApplication::topLevelWidgets();
        const auto found = std::ranges::find_if(all, [](const QWidget* each) {
            return each->isVisible() && each->windowType() == Qt::Window && !isPassing(*each);
        });
        return found == all.end() ? nullptr : *found;
    }

    /// The one that had the keyboard last, as far as the desktop has told: that may have closed.
    QWidget* lastActive()
    {
        if (auto* const active = QApplication::activeWindow())
            return active;
        const auto* const focused = QGuiApplication::focusWindow();
        const auto all = QApplication::topLevelWidgets();
        const auto last = std::ranges::find_if(all, [focused](const QWidget* each) {
            return focused != nullptr && each->windowHandle() == focused;
        });
        return last == all.end() ? nullptr : *last;
    }

    /// Whose window it is: a list of proposals belongs to the field that it hands the keyboard to.
    QWidget* owner(const QWidget& window)
    {
        auto* const field = window.windowType() == Qt::Popup ? window.focusProxy() : nullptr;
        auto* const behind = field != nullptr ? field : window.parentWidget();
        return behind != nullptr && behind->window() != &window ? behind->window() : nullptr;
    }

    /// The window under the dialog has come or gone.
    void followWindow(QDialog& dialog, const QWidget& under)
    {
        if (!dialog.isVisible())
            return; // it has been answered
        if (!under.isVisible())
            return dialog.reject();
        // Brought back, perhaps on another workspace: it is in front of the dialog now.
        dialog.hide();
        dialog.show();
    }

} // namespace

QWidget* lastingWindow(QWidget* window)
{
    while (window != nullptr && (!window->isVisible() || window->windowType() == Qt::Popup))
        window = owner(*window);
    return window;
}

QWidget* keyWindow()
{
    auto* const window = lastingWindow(lastActive());
    return window != nullptr && isPassing(*window) ? ordinaryWindow() : window;
}

void openAsSheet(QDialog& dialog, QWidget& window)
{
    dialog.setAttribute(Qt::WA_DeleteOnClose);
    dialog.setWindowModality(Qt::WindowModal);
    if (const auto* const under = window.windowHandle()) {
        // Not before the next turn: a window that is brought back is hidden and shown in one.
        const auto follow = [&dialog, &window] { followWindow(dialog, window); };
        QObject::connect(
            under, &QWindow::visibleChanged, &dialog, [&dialog, follow](bool isVisible) {
                if (!isVisible)
                    QTimer::singleShot(0, &dialog, follow);
            });
    }
    dialog.open();
}

} // namespace korvane
