#include "panel/view/PanelAnnouncer.h"

#include "panel/PanelTexts.h"
#include "panel/view/ClipListAccess.h"
#include "panel/view/ClipListView.h"
#include "panel/view/FilterTabAccess.h"
#include "panel/view/FilterTabBar.h"

#include <utility>

namespace korvane {

using namespace std::chrono_literals;

PanelAnnouncer::PanelAnnouncer(ClipStore& store, MainLoop& loop, ClipListView& list,
    FilterTabBar& tabs, QWidget& field, QWidget& panel)
    : m_store(store)
    , m_loop(loop)
    , m_list(list)
    , m_tabs(tabs)
    , m_field(field)
    , m_announcement(&panel)
{
    auto& state = store.panel();
    const auto follow = [this](const auto&...) { tellSoon(); };
    m_connections.push_back(state.panelOpenCount.onChange([this](int) {
        m_told.reset();
        tellSoon();
    }));
    m_connections.push_back(store.clipsChanged.connect(follow));
    m_connections.push_back(state.panelSearch.onChange(follow));
    m_connections.push_back(state.panelFilterTab.onChange(follow));
    m_connections.push_back(state.tabDisplayed.onChange(follow));
    m_connections.push_back(state.selectedClipID.onChange(follow));
}

/// What belongs together, as the steps of one key press do, is told once, when all of it is done.
void PanelAnnouncer::tellSoon()
{
    if (QAccessible::isActive())
        m_soon = m_loop.after(0ms, [this] { tellChanges(); });
    else
        m_told.reset();
}

void PanelAnnouncer::tellChanges()
{
    auto* const list
        = dynamic_cast<ClipListAccess*>(QAccessible::queryAccessibleInterface(&m_list));
    if (!list || !m_list.isVisible()) {
        m_told.reset();
        return;
    }
    const auto before = std::exchange(m_told, look());
    const auto& now = *m_told;
    if (before) {
        tellTab(*before, now);
        tellSelection(*list, *before, now);
    } else {
        giveFieldFocus(*list);
    }
    announce(*list, before, now);
}

PanelAnnouncer::Told PanelAnnouncer::look() const
{
    const auto& panel = m_store.panel();
    return { panel.shownTab(), panel.panelFilterTab.value(), panel.panelSearch.value(),
        m_list.shown().rows().size(), panel.selectedClipID.value() };
}

void PanelAnnouncer::tellTab(const Told& before, const Told& now)
{
    auto* const tabs
        = dynamic_cast<FilterTabAccess*>(QAccessible::queryAccessibleInterface(&m_tabs));
    if (!tabs || before.shownTab == now.shownTab)
        return;
    tell(tabs->tab(before.shownTab), QAccessible::Selection);
    tell(tabs->tab(now.shownTab), QAccessible::Selection);
}

void PanelAnnouncer::tellSelection(ClipListAccess& list, const Told& before, const Told& now)
{
    if (before.selected != now.selected) {
        tell(list.row(before.selected), QAccessible::Selection);
        tell(list.row(now.selected), QAccessible::Selection);
    }
    if (before.search != now.search || !list.row(now.selected))
        giveFieldFocus(list);
    else if (before.selected != now.selected)
        list.setFocused(now.selected);
}

void PanelAnnouncer::giveFieldFocus(ClipListAccess& list)
{
    if (!list.focused())
        return; // the field has had it all the time
    list.setFocused(std::nullopt);
    tell(QAccessible::queryAccessibleInterface(&m_field), QAccessible::Focus);
}

void PanelAnnouncer::announce(
    ClipListAccess& list, const std::optional<Told>& before, const Told& now)
{
    const bool isNewTab = !before || before->tab != now.tab;
    const bool isNewSearch = !before || before->search != now.search;
    const bool hasRunEmpty = now.count == 0 && before && before->count != 0;
    if (!isNewTab && !isNewSearch && !hasRunEmpty)
        return;
    // A row that has the focus is read out by that.
    const bool isSelectionUntold
        = !list.focused() && (!before || before->selected != now.selected);
    auto* const row = isSelectionUntold ? list.row(now.selected) : nullptr;
    m_announcement.say(QString::fromStdString(
        paneltexts::filterAnnouncement(isNewTab ? std::optional(now.tab) : std::nullopt, now.count,
            row ? row->text(QAccessible::Name).toStdString() : std::string())));
}

} // namespace korvane
