#include "app/view/KorPanel.h"

#include "app/view/KeyEvents.h"
#include "look/view/Colours.h"
#include "look/view/Outline.h"
#include "look/view/RoundedRegion.h"
#include "panel/view/PanelMetrics.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWindow>

#include <cmath>
#include <utility>

namespace korvane {

namespace {
    constexpr int initialHeight = 480;

    Qt::WindowFlags flagsOf(KorPanel::Role role)
    {
        const Qt::WindowFlags flags = Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint
            | Qt::BypassWindowManagerHint;
        return role == KorPanel::Role::preview ? flags | Qt::WindowDoesNotAcceptFocus : flags;
    }

    QPainterPath rounded(const QRectF& rect, double radius)
    {
        QPainterPath path;
        path.addRoundedRect(rect, radius, radius);
        return path;
    }
} // namespace

KorPanel::KorPanel(
    Observable<bool>& isComposited, FrameTeller tellFrame, Role role, QWidget* ground)
    : QWidget(ground, ground ? Qt::WindowFlags() : flagsOf(role))
    , m_role(role)
    , m_tellFrame(std::move(tellFrame))
{
    setGeometry(0, 0, metrics::panelWidth, initialHeight);
    if (ground)
        hide(); // else it would come with the ground
    else
        makeWindow();
    handle()->installEventFilter(this);
    m_compositedChanged
        = isComposited.observe([this](bool composited) { setComposited(composited); });
}

void KorPanel::makeWindow()
{
    setWindowTitle(takesKeyboard() ? QStringLiteral("Korvane") : QStringLiteral("Korvane Preview"));
    setAttribute(Qt::WA_ShowWithoutActivating, !takesKeyboard());
    // Whether a compositor runs may change later, the window's depth may not: without one the alpha
    // of its pixels is simply not looked at.
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_AlwaysShowToolTips); // the window is never "active" to a window manager
    setAttribute(Qt::WA_QuitOnClose, false);
    create();
    setAttribute(Qt::WA_X11NetWmWindowTypePopupMenu); // lost on a window that is not there yet
}

void KorPanel::installAccess()
{
    QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
        auto* const panel = dynamic_cast<KorPanel*>(object);
        if (!panel)
            return nullptr;
        return new QAccessibleWidget(
            panel, panel->isWindow() ? QAccessible::Window : QAccessible::Pane);
    });
}

void KorPanel::setContents(std::unique_ptr<QWidget> contents)
{
    m_contents = std::move(contents);
    m_contents->setParent(this);
    m_contents->setGeometry(rect().marginsRemoved(m_margins));
}

bool KorPanel::eventFilter(QObject* watched, QEvent* event)
{
    // An open menu takes the keys and the pointer; the toolkit leads them there.
    if (watched != handle() || QApplication::activePopupWidget())
        return false;
    if (event->type() == QEvent::KeyPress)
        return m_handleKey && m_handleKey(keyPressFrom(static_cast<QKeyEvent&>(*event)));
    // The menu key comes as a wish for a menu before it comes as a key, and the toolkit would lead
    // that to the search field.
    if (event->type() == QEvent::ContextMenu
        && static_cast<QContextMenuEvent&>(*event).reason() == QContextMenuEvent::Keyboard)
        return m_handleKey && m_handleKey({ .keyCode = menuKey, .modifiers = 0, .characters = {} });
    if (isReachedBy(*event) && isVisible() && m_keyboardWanted)
        m_keyboardWanted();
    return false;
}

/// Another window of ours that has the keyboard, such as the settings, does not lose it to a pointer that
/// only crosses the panel; to a click it does. An alert over that window, which has just closed, has left
/// it to nobody for a moment, and the toolkit then tells where the pointer rests: that is no arrival.
bool KorPanel::isReachedBy(const QEvent& event)
{
    const bool isEnter = event.type() == QEvent::Enter;
    const bool isPress = event.type() == QEvent::MouseButtonPress;
    if (!isEnter && !isPress && event.type() != QEvent::MouseMove)
        return false;
    const auto at = static_cast<const QSinglePointEvent&>(event).globalPosition();
    const bool hasMoved = std::exchange(m_pointer, at) != at;
    const auto* const holder = QGuiApplication::focusWindow();
    return isPress || (isEnter && hasMoved && (!holder || holder == handle()));
}

void KorPanel::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    if (m_isComposited)
        paintTranslucent(painter, event->rect());
    else
        paintOpaque(painter);
}

void KorPanel::paintTranslucent(QPainter& painter, const QRect& dirty)
{
    const auto& colours = coloursOf(palette());
    const auto panel = rect().marginsRemoved(m_margins);
    // Under the rounded corners there is shadow, too.
    constexpr int radius = metrics::panelRadius;
    const bool isWithin = panel.adjusted(radius, 0, -radius, 0).contains(dirty)
        || panel.adjusted(0, radius, 0, -radius).contains(dirty);
    if (!isWithin)
        m_shadow.paint(painter, panel, schemeOf(palette()) == ColourScheme::dark ? 0.55 : 0.32);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(rounded(onPixels(painter, panel), metrics::panelRadius), colours.panel);
    paintOutline(painter, panel, metrics::panelRadius, colours.edge);
}

void KorPanel::paintOpaque(QPainter& painter)
{
    const auto& colours = coloursOf(palette());
    // The edge fills everything that the inner shape leaves over, so that no pixel of the cut-out
    // shape is left with the colour of neither.
    painter.fillRect(rect(), colours.panel);
    painter.fillRect(rect(), colours.edge);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(
        rounded(QRectF(rect()).adjusted(1, 1, -1, -1), metrics::panelRadius - 1), colours.panel);
}

void KorPanel::resizeEvent(QResizeEvent*)
{
    if (m_contents)
        m_contents->setGeometry(rect().marginsRemoved(m_margins));
    shape();
}

void KorPanel::showEvent(QShowEvent*)
{
    // The toolkit learns late that a hidden window has lost the keyboard. To one that is shown again
    // before that, it says nothing, and leaves it without a cursor and without a focus to tell of.
    if (QGuiApplication::focusWindow() == handle() && !isActiveWindow())
        QApplication::setActiveWindow(window());
}

void KorPanel::hideEvent(QHideEvent*)
{
    // A menu of a window that is gone would act on what nobody sees.
    for (auto* menu : findChildren<QMenu*>())
        menu->close();
}

void KorPanel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange)
        update();
    QWidget::changeEvent(event);
}

void KorPanel::setComposited(bool isComposited)
{
    const auto frame = visibleFrame();
    m_isComposited = isComposited;
    m_margins = m_isComposited ? PanelShadow::margins() : QMargins();
    setVisibleFrame(frame);
    if (m_contents)
        m_contents->setGeometry(rect().marginsRemoved(m_margins));
    shape();
    update();
}

void KorPanel::shape()
{
    tellFrame();
    if (m_isComposited)
        clearMask();
    else
        setMask(roundedRegion(rect(), metrics::panelRadius));
}

void KorPanel::tellFrame()
{
    // Without a shadow the panel is the whole window, which needs no telling unless it was not.
    if (!m_tellFrame || (!m_isComposited && !m_hasToldFrame))
        return;
    m_hasToldFrame = m_isComposited;
    const auto pixels = [ratio = devicePixelRatioF()](
                            int points) { return static_cast<int>(std::lround(points * ratio)); };
    const auto panel = rect().marginsRemoved(m_margins);
    m_tellFrame(static_cast<std::uint32_t>(winId()),
        { pixels(panel.x()), pixels(panel.y()), pixels(panel.width()), pixels(panel.height()) },
        { pixels(width()), pixels(height()) });
}

} // namespace korvane
