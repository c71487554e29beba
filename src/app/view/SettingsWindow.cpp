#include "app/view/SettingsWindow.h"

#include "app/view/SettingsPages.h"
#include "app/view/WindowScreens.h"
#include "look/view/ApplicationIcon.h"
#include "settings/view/FormPage.h"
#include "settings/view/PreferencesView.h"
#include "settings/view/SettingsAccess.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMoveEvent>
#include <QWindow>

#include <functional>
#include <utility>

namespace korvane {

namespace {
    constexpr QSize contentSize { FormPage::pageWidth,
        PreferencesView::barHeight + FormPage::pageHeight };
    constexpr Qt::WindowFlags ordinaryWindow = Qt::Window | Qt::CustomizeWindowHint
        | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint
        | Qt::WindowCloseButtonHint;
    // The desktop moves a window in several steps when it puts a frame around it. Nobody takes hold of a
    // window that has only just appeared.
    constexpr std::chrono::milliseconds pauseBetweenLooks { 50 };
    constexpr int looks = 20;
} // namespace

/// The toolkit's window. It hears the keys that no control of it has used.
class SettingsWindow::Window : public QWidget {
public:
    Window(SettingsTabSelection& selection, Symbols& symbols)
        : QWidget(nullptr, ordinaryWindow)
        , m_view(new PreferencesView(selection, symbols, this))
    {
        setWindowTitle(QStringLiteral("Korvane Settings"));
        setWindowIcon(applicationIcon());
        setAttribute(Qt::WA_QuitOnClose, false);
        setFixedSize(contentSize);
        m_view->setGeometry(rect());
    }

    PreferencesView& view() { return *m_view; }

    /// The desktop has moved it, which it does to put its frame around it.
    std::function<void()> moved;

protected:
    void moveEvent(QMoveEvent* event) override
    {
        QWidget::moveEvent(event);
        if (moved)
            moved();
    }
    void resizeEvent(QResizeEvent*) override { m_view->setGeometry(rect()); }
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->key() == Qt::Key_Escape)
            close();
        else if (event->key() == Qt::Key_Alt)
            m_view->showLetters(true);
        else
            QWidget::keyPressEvent(event);
    }
    void keyReleaseEvent(QKeyEvent* event) override
    {
        if (event->key() == Qt::Key_Alt)
            m_view->showLetters(false);
        QWidget::keyReleaseEvent(event);
    }
    void changeEvent(QEvent* event) override
    {
        // The key may be let go in another window.
        if (event->type() == QEvent::ActivationChange && !isActiveWindow())
            m_view->showLetters(false);
        QWidget::changeEvent(event);
    }

private:
    PreferencesView* m_view; // its child
};

void SettingsWindow::installAccess()
{
    installSettingsAccess();
    QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
        auto* const window = dynamic_cast<Window*>(object);
        return window ? new QAccessibleWidget(window, QAccessible::Window) : nullptr;
    });
}

SettingsWindow::SettingsWindow(const SettingsSubjects& subjects, const World& world)
    : m_screens(world.screens)
    , m_loop(world.loop)
    , m_window(std::make_unique<Window>(subjects.selection, m_symbols))
    , m_view(&m_window->view())
    , m_passKeyboard(world.passKeyboard)
{
    addSettingsPages(*m_view, subjects, world, m_symbols);
    m_window->moved = [this] { lookAtFrame(); };
}

SettingsWindow::~SettingsWindow() = default;

QWidget& SettingsWindow::widget() const
{
    return *m_window;
}

Rect SettingsWindow::frame() const
{
    // The toolkit's widget keeps the margins that it had at its first showing, before the frame.
    const auto* const handle = m_window->windowHandle();
    const auto margins = handle != nullptr ? handle->frameMargins() : QMargins();
    return m_screens.geometry().upward(m_window->geometry().marginsAdded(margins));
}

/// Not from within the event: the place may be set anew by that.
void SettingsWindow::lookAtFrame()
{
    if (m_window->isVisible() && m_window->windowHandle()->frameMargins() != m_placedWith)
        m_afterFraming = m_loop.after(std::chrono::milliseconds::zero(), [this] { framed(); });
}

/// A window manager may take the place of the frame for that of its contents (i3), and the title bar stands
/// over the bar of the desktop. Then it is asked for a place that is so much farther on.
void SettingsWindow::lookAtPlace()
{
    if (--m_looks == 0)
        m_looking.stop(); // from here on it is the user who moves it
    if (!m_window->isVisible())
        return;
    lookAtFrame();
    auto* const handle = m_window->windowHandle();
    const auto now = handle->framePosition();
    const bool isAtRest = std::exchange(m_seen, now) == now;
    if (!isAtRest || now == m_place)
        return;
    m_asked = m_asked ? *m_asked + (m_place - now) : m_place;
    m_seen.reset();
    handle->setFramePosition(*m_asked);
}

void SettingsWindow::setFrame(const Rect& frame)
{
    const Rect now = this->frame();
    const QSize room(static_cast<int>(frame.width - now.width) + m_window->width(),
        static_cast<int>(frame.height - now.height) + m_window->height());
    m_window->setFixedSize(room.boundedTo(contentSize));
    m_place = m_screens.geometry().onDesktop(frame).topLeft();
    m_asked.reset();
    m_seen.reset();
    auto* const handle = m_window->windowHandle();
    if (handle != nullptr)
        m_placedWith = handle->frameMargins();
    if (m_window->isVisible()) {
        m_asked = m_place;
        handle->setFramePosition(m_place); // the widget may not know its frame yet
    } else {
        m_window->move(m_place);
    }
    m_looks = looks;
    m_looking = m_loop.every(pauseBetweenLooks, [this] { lookAtPlace(); });
}

Rect SettingsWindow::wantedFrame() const
{
    Rect wanted = frame();
    wanted.width += contentSize.width() - m_window->width();
    wanted.height += contentSize.height() - m_window->height();
    return wanted;
}

void SettingsWindow::show()
{
    // Brought back by us it appears as one that was closed, not in the middle of what was being typed.
    if (m_window->isMinimized())
        m_window->hide();
    const auto leaveControls = [this] { m_window->setFocus(Qt::OtherFocusReason); };
    leaveControls();
    if (m_passKeyboard)
        m_passKeyboard(static_cast<std::uint32_t>(m_window->winId()));
    m_window->setWindowState(m_window->windowState() & ~Qt::WindowMinimized);
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
    // Once more: to become the active one has the toolkit look for a control.
    m_afterShow = m_loop.after(std::chrono::milliseconds::zero(), leaveControls);
}

void SettingsWindow::hide()
{
    m_afterShow.stop();
    m_window->hide();
}

bool SettingsWindow::isVisible() const
{
    return m_window->isVisible() && !m_window->isMinimized();
}

} // namespace korvane
