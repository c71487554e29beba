#include "app/view/StageOnOverlay.h"

#include "app/view/Overlay.h"
#include "look/view/PopupHost.h"

#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace korvane {

/// The window that covers the output.
class StageOnOverlay::Ground : public QWidget, public PopupHost {
public:
    explicit Ground(StageOnOverlay& stage)
        : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint)
        , m_stage(stage)
    {
        setWindowTitle(QStringLiteral("Korvane"));
        setAttribute(Qt::WA_TranslucentBackground);
        setAttribute(Qt::WA_AlwaysShowToolTips);
        setAttribute(Qt::WA_QuitOnClose, false);
        create();
        QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
            auto* const ground = dynamic_cast<Ground*>(object);
            return ground ? new QAccessibleWidget(ground, QAccessible::Window) : nullptr;
        });
    }

    std::unique_ptr<Standing> stand(QWidget& popup) override
    {
        return m_stage.m_overlay.stand(popup);
    }

    /// Whether it is painted in the scale of its output, and not in that of any other.
    bool hasOutputsScale() const
    {
        return qFuzzyCompare(windowHandle()->devicePixelRatio(), screen()->devicePixelRatio());
    }

protected:
    bool event(QEvent* event) override
    {
        // The window comes onto its output before it gets the keyboard.
        if (event->type() == QEvent::WindowActivate)
            m_stage.cameOntoOutput();
        return QWidget::event(event);
    }
    void enterEvent(QEnterEvent* event) override { m_stage.arrived(event->position().toPoint()); }
    // What the panels make no use of comes here, too.
    void mousePressEvent(QMouseEvent* event) override
    {
        if (event->button() == Qt::LeftButton || event->button() == Qt::RightButton)
            m_stage.pressedAt(event->position().toPoint());
    }

private:
    StageOnOverlay& m_stage;
};

StageOnOverlay::StageOnOverlay(Overlay& overlay, MainLoop& loop)
    : m_overlay(overlay)
    , m_loop(loop)
    , m_ground(std::make_unique<Ground>(*this))
    , m_pressedElsewhere(overlay.pressedElsewhere.connect([this] { pressedOutside(); }))
    , m_closed(overlay.closed.connect([this] {
        close();
        lost();
    }))
{
}

StageOnOverlay::~StageOnOverlay()
{
    close();
}

QWidget* StageOnOverlay::ground()
{
    return m_ground.get();
}

void StageOnOverlay::show(KorPanel& panel)
{
    if (m_isOpen) {
        m_overlay.setKeyboard(true);
    } else if (m_overlay.show(*m_ground)) {
        m_isOpen = true;
        m_isScaleAwaited = !m_ground->hasOutputsScale();
        if (m_isPointerAwaited || m_isScaleAwaited)
            m_patience = m_loop.after(patience, [this] { reveal(); });
    } else {
        m_isPointerAwaited = false;
        return; // it stays hidden; the overlay has told why
    }
    forget(panel);
    m_shown.emplace_back(&panel);
    if (!m_patience.isActive())
        reveal();
}

void StageOnOverlay::reveal()
{
    m_patience.stop();
    m_isPointerAwaited = false;
    for (const auto& panel : m_shown) {
        if (!panel)
            continue;
        panel->show();
        panel->raise();
    }
}

void StageOnOverlay::hide(KorPanel& panel)
{
    if (panel.takesKeyboard())
        return close();
    forget(panel);
    panel.hide();
}

void StageOnOverlay::forget(const KorPanel& panel)
{
    std::erase_if(m_shown, [&panel](const auto& shown) { return shown == &panel; });
}

void StageOnOverlay::close()
{
    m_patience.stop();
    m_isPointerAwaited = false;
    m_isScaleAwaited = false;
    // Their menus go first: they stand on the ground.
    for (const auto& panel : std::exchange(m_shown, {})) {
        if (panel)
            panel->hide();
    }
    if (std::exchange(m_isOpen, false))
        m_overlay.hide();
}

bool StageOnOverlay::isVisible(const KorPanel& panel) const
{
    return std::ranges::any_of(m_shown, [&panel](const auto& shown) { return shown == &panel; });
}

void StageOnOverlay::takeKeyboard(KorPanel& panel)
{
    if (m_isOpen && panel.takesKeyboard())
        m_overlay.setKeyboard(true);
}

void StageOnOverlay::lendKeyboard()
{
    if (m_isOpen)
        m_overlay.setKeyboard(false);
}

void StageOnOverlay::arrived(const QPoint& pointer)
{
    if (!m_isOpen || !std::exchange(m_isPointerAwaited, false))
        return;
    pointerArrived(pointer);
    cameOntoOutput();
    if (!m_isScaleAwaited)
        reveal();
}

/// Before that the toolkit does not know its scale; what it has painted until then it would magnify, and
/// paint anew only what changes later.
void StageOnOverlay::cameOntoOutput()
{
    if (!m_isScaleAwaited || !m_ground->hasOutputsScale())
        return;
    m_isScaleAwaited = false;
    m_ground->update();
    if (!m_isPointerAwaited)
        reveal();
}

void StageOnOverlay::pressedAt(const QPoint& place)
{
    const bool isOnPanel = std::ranges::any_of(m_shown,
        [&place](const auto& panel) { return panel && panel->visibleFrame().contains(place); });
    if (!isOnPanel)
        pressedOutside();
}

void StageOnOverlay::pressedOutside()
{
    if (m_isWatching)
        pressed();
}

} // namespace korvane
