#include "panel/view/ClipPanelView.h"

#include "panel/PanelController.h"
#include "panel/view/PanelMetrics.h"

#include <QEvent>

namespace korvane {

namespace {
    // The two ways to a context menu by the keyboard.
    constexpr KeyCode menuKey = 110;
    constexpr KeyCode f10 = 109;
} // namespace

ClipPanelView::ClipPanelView(
    ClipStore& store, PanelController& controller, MainLoop& loop, const TextReader& reader)
    : m_controller(controller)
    , m_header(controller, m_symbols, this)
    , m_search(store, m_symbols, reader, this)
    , m_tabs(
          store, loop, m_symbols, [&controller](FilterTab tab) { controller.switchTab(tab); }, this)
    , m_announcer(store, loop, m_list, m_tabs, m_search.field(), *this)
    , m_list(
          store, controller, loop, m_symbols, reader,
          [this] {
              m_search.setFocus(Qt::OtherFocusReason);
              m_announcer.focusReturned();
          },
          this)
    , m_chevrons(m_list, controller, loop, m_symbols, this)
    , m_footer(store, this)
{
}

bool ClipPanelView::handle(const KeyPress& press)
{
    if (m_list.isRenaming())
        return handleWhileRenaming(press);
    const bool asksForMenu
        = press.keyCode == menuKey || (press.keyCode == f10 && press.has(modifiers::shift));
    if (asksForMenu) {
        m_list.openMenuOfSelectedRow();
        return true;
    }
    return m_header.handle(press) || m_controller.handle(press);
}

bool ClipPanelView::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate)
        m_announcer.panelActivated();
    return QWidget::event(event);
}

void ClipPanelView::resizeEvent(QResizeEvent*)
{
    m_header.setGeometry(0, 0, width(), metrics::headerHeight);
    m_search.setGeometry(0, metrics::headerHeight, width(), metrics::searchHeight);
    m_tabs.setGeometry(
        0, metrics::headerHeight + metrics::searchHeight, width(), metrics::tabsHeight);
    const int footerTop = height() - metrics::footerHeight;
    m_list.setGeometry(0, metrics::listTop, width(), footerTop - metrics::listTop);
    m_chevrons.place();
    m_footer.setGeometry(0, footerTop, width(), metrics::footerHeight);
}

void ClipPanelView::showEvent(QShowEvent*)
{
    m_search.setFocus(Qt::OtherFocusReason);
}

void ClipPanelView::hideEvent(QHideEvent*)
{
    m_chevrons.stop();
}

bool ClipPanelView::handleWhileRenaming(const KeyPress& press)
{
    switch (press.keyCode) {
    case keycodes::returnKey:
        m_list.submitRename();
        return true;
    case keycodes::escape:
        m_list.giveUpRename();
        return true;
    case keycodes::tab:
        return true; // the focus stays where the name is typed
    default:
        return false;
    }
}

} // namespace korvane
