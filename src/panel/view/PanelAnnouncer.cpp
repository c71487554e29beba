#include "panel/view/PanelAnnouncer.h"

#include "panel/PanelTexts.h"
#include "panel/Selection.h"
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
        m_announcement.hide(); // or it would be read out again with the panel's showing
        tellSoon();
    }));
    m_connections.push_back(store.clipsChanged.connect(follow));
    m_connections.push_back(state.panelSearch.onChange(follow));
    m_connections.push_back(state.panelFilterTab.onChange(follow));
    m_connections.push_back(state.tabDisplayed.onChange(follow));
    m_connections.push_back(state.selectedClipID.onChange(follow));
}

void PanelAnnouncer::focusReturned()
{
    m_hasFocusReturned = QAccessible::isActive();
    tellSoon();
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
    if (!m_told && !m_list.isActiveWindow())
        return;
    const auto before = std::exchange(m_told, look());
    const auto& now = *m_told;
    if (before) {
        tellTab(*before, now);
        tellSelection(*list, *before, now);
    } else {
        list->setFocused(std::nullopt); // the toolkit itself has told that the field has it
    }
    announce(*list, before, now);
    m_hasFocusReturned = false;
}

PanelAnnouncer::Told PanelAnnouncer::look() const
{
    const auto& panel = m_store.panel();
    const auto& rows = m_list.store().filteredClips();
    Told now { panel.shownTab(), panel.panelFilterTab.value(), panel.panelSearch.value(),
        rows.size(), panel.selectedClipID.value(), {} };
    if (const auto index = indexOf(rows, now.selected)) {
        now.title = paneltexts::rowTitle(*rows[*index]);
        now.isPinned = rows[*index]->isPinned;
    }
    return now;
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
    else if (before.selected != now.selected || (m_hasFocusReturned && list.focused()))
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
    const bool isNewSelection = !before || before->selected != now.selected;
    if (isNewTab || isNewSearch || hasRunEmpty) {
        // A row that is given the focus is read out by that.
        const auto row = isNewSelection && !list.focused() ? nameOf(list.row(now.selected)) : "";
        const auto tab = isNewTab ? std::optional(now.tab) : std::nullopt;
        m_announcement.say(
            QString::fromStdString(paneltexts::filterAnnouncement(tab, now.count, row)));
    } else if (!isNewSelection && !(m_hasFocusReturned && list.focused())
        && (before->title != now.title || before->isPinned != now.isPinned)) {
        m_announcement.say(QString::fromStdString(nameOf(list.row(now.selected))));
    }
}

std::string PanelAnnouncer::nameOf(QAccessibleInterface* row)
{
    return row ? row->text(QAccessible::Name).toStdString() : std::string();
}

} // namespace korvane
