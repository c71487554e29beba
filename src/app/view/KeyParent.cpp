#include "app/view/KeyParent.h"

#include "look/view/SheetDialog.h"

#include <QGuiApplication>
#include <QObject>
#include <QTimer>
#include <QWidget>
#include <QWindow>

namespace korvane {

namespace {

    class Parent : public ParentWindow {
    public:
        explicit Parent(QWidget& window)
            : m_number(window.winId())
        {
            // Not before the next turn: a window that is brought back is hidden and shown in one.
            const auto look = [this, &window] {
                if (!window.isVisible())
                    closed();
            };
            QObject::connect(window.windowHandle(), &QWindow::visibleChanged, &m_listener,
                [this, look](bool isVisible) {
                    if (!isVisible)
                        QTimer::singleShot(0, &m_listener, look);
                });
        }

        std::string identifier() const override
        {
            // Other desktops number their windows for us alone.
            if (QGuiApplication::platformName() != QStringLiteral("xcb"))
                return {};
            return "x11:" + QString::number(m_number, 16).toStdString();
        }

    private:
        WId m_number;
        QObject m_listener; // ends first, and with it what is told to us
    };

} // namespace

std::unique_ptr<ParentWindow> keyParent()
{
    auto* const window = keyWindow();
    return window != nullptr ? std::make_unique<Parent>(*window) : nullptr;
}

} // namespace korvane
