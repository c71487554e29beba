#include "panel/PanelController.h"

#include "capture/ClipboardMonitor.h"
#include "model/ClipStore.h"
#include "model/Text.h"
#include "panel/PanelHost.h"
#include "panel/Selection.h"
#include "panel/TabSwitcher.h"

#include <algorithm>
#include <variant>

namespace korvane {

namespace {

    /// The first displayed clip with the text, or else simply the first.
    std::size_t indexOfText(const DisplayedClips& displayed, std::string_view text)
    {
        const auto found = std::ranges::find_if(
            displayed, [text](const ClipItem* clip) { return canonicallyEqual(clip->text, text); });
        return found == displayed.end() ? 0 : static_cast<std::size_t>(found - displayed.begin());
    }

} // namespace

PanelController::PanelController(ClipStore& store, ClipboardMonitor& monitor,
    Preferences& preferences, PanelHost& host, ClipActions& actions, TabSwitcher& tabs)
    : m_store(store)
    , m_monitor(monitor)
    , m_preferences(preferences)
    , m_host(host)
    , m_actions(actions)
    , m_tabs(tabs)
{
    auto& panel = store.panel();
    m_connections.push_back(panel.panelSearch.onChange([this](const std::string&) {
        m_selectedIndex = 0; // from another search on, its first hit is the next best
        keepSelectionDisplayed();
        if (!m_store.panel().selectedClipID.value()) // the search before had no hit
            selectFirst(m_store);
    }));
    m_connections.push_back(store.clipsChanged.connect([this] { keepSelectionDisplayed(); }));
    m_connections.push_back(panel.selectedClipID.onChange([this](const auto&) { noteIndex(); }));
    // The same clip may stand elsewhere in another tab.
    m_connections.push_back(panel.panelFilterTab.onChange([this](FilterTab) { noteIndex(); }));
}

bool PanelController::handle(const KeyPress& press)
{
    const auto command = panelCommand(press,
        { .isPreviewVisible = m_host.isPreviewVisible(),
            .isTabCyclingEnabled = isTabCyclingEnabled(m_preferences),
            .isDirectPasteEnabled = isDirectPasteEnabled(m_preferences) });
    return std::visit([this](auto asked) { return perform(asked); }, command);
}

void PanelController::prepareToOpen(std::optional<std::string_view> clipboardText)
{
    auto& panel = m_store.panel();
    panel.panelSearch.set({});
    const auto& displayed = m_store.filteredClips();
    select(m_store, displayed, clipboardText ? indexOfText(displayed, *clipboardText) : 0);
    panel.panelOpenCount.set(panel.panelOpenCount.value() + 1);
}

void PanelController::selectText(std::string_view text)
{
    const auto& displayed = m_store.filteredClips();
    select(m_store, displayed, indexOfText(displayed, text));
}

void PanelController::click(const ClipId& id)
{
    withClip(id, [this](const ClipItem& clip) {
        m_store.panel().selectedClipID.set(clip.id);
        m_actions.choose(clip);
    });
}

void PanelController::selectClip(const ClipId& id)
{
    m_host.hidePreview();
    withClip(id, [this](const ClipItem& clip) { m_store.panel().selectedClipID.set(clip.id); });
}

void PanelController::copy(const ClipId& id)
{
    withClip(id, [this](const ClipItem& clip) { m_actions.copy(clip); });
}

void PanelController::pasteDirectly(const ClipId& id)
{
    withClip(id, [this](const ClipItem& clip) { m_actions.activate(clip); });
}

void PanelController::reveal(const ClipId& id)
{
    withClip(id, [this](const ClipItem& clip) { m_actions.reveal(clip); });
}

void PanelController::togglePin(const ClipId& id)
{
    m_store.togglePin(id);
}

void PanelController::rename(const ClipId& id, std::string_view name)
{
    m_store.rename(id, name);
}

void PanelController::quickLook(const ClipId& id)
{
    withClip(id, [this](const ClipItem& clip) {
        // The keys act on what is selected, and the user will take that to be what is looked at.
        m_store.panel().selectedClipID.set(clip.id);
        m_host.showPreview(clip, m_store.panel().selectedRowMidY);
    });
}

void PanelController::remove(const ClipId& id)
{
    withClip(id, [this](const ClipItem& clip) { m_store.deleteClip(clip); });
}

void PanelController::switchTab(FilterTab tab)
{
    if (tab != m_store.panel().shownTab())
        m_host.hidePreview();
    m_tabs.switchTo(tab);
}

void PanelController::openPreferences()
{
    m_host.openPreferences();
}

void PanelController::choose(applicationmenu::Action action)
{
    switch (action) {
    case applicationmenu::Action::openPreferences:
        return openPreferences();
    case applicationmenu::Action::checkForUpdates:
        return m_host.checkForUpdates();
    case applicationmenu::Action::openMakersPage:
        return m_host.openMakersPage();
    case applicationmenu::Action::quit:
        return m_host.quit();
    }
}

void PanelController::togglePrivateMode()
{
    m_monitor.setPrivateModeEnabled(!m_monitor.isPrivateModeEnabled());
}

Connection PanelController::observePrivateMode(const std::function<void(bool)>& tell)
{
    tell(m_monitor.isPrivateModeEnabled());
    return m_monitor.privateModeChanged.connect(tell);
}

Connection PanelController::observeChevronActivation(
    const std::function<void(ChevronActivation)>& tell)
{
    tell(chevronActivation(m_preferences));
    return m_preferences.changed.connect([this, tell] { tell(chevronActivation(m_preferences)); });
}

bool PanelController::perform(panelcommands::Pass)
{
    return false;
}

bool PanelController::perform(panelcommands::ActivateSelected)
{
    withClip(m_store.panel().selectedClipID.value(),
        [this](const ClipItem& clip) { m_actions.activate(clip); });
    return true;
}

bool PanelController::perform(panelcommands::ActivateAt command)
{
    const auto& displayed = m_store.filteredClips();
    if (command.index >= displayed.size())
        return false;
    withClip(
        displayed[command.index]->id, [this](const ClipItem& clip) { m_actions.activate(clip); });
    return true;
}

bool PanelController::perform(panelcommands::CycleTab command)
{
    m_host.hidePreview();
    m_tabs.cycle(command.steps);
    return true;
}

bool PanelController::perform(panelcommands::ShowPreview)
{
    if (const auto& selected = m_store.panel().selectedClipID.value())
        quickLook(*selected);
    return true;
}

bool PanelController::perform(panelcommands::HidePreview)
{
    m_host.hidePreview();
    return true;
}

bool PanelController::perform(panelcommands::DeleteSelected)
{
    if (const auto& selected = m_store.panel().selectedClipID.value())
        remove(*selected);
    return true;
}

bool PanelController::perform(panelcommands::Escape)
{
    auto& search = m_store.panel().panelSearch;
    if (search.value().empty()) {
        m_host.close();
    } else {
        search.set({});
        selectFirst(m_store);
    }
    return true;
}

bool PanelController::perform(panelcommands::MoveSelection command)
{
    m_host.hidePreview();
    const auto& displayed = m_store.filteredClips();
    if (displayed.empty())
        return true;
    // Without a selection the move starts at the first clip, so that Down selects the second,
    // deliberately.
    const auto from = static_cast<std::ptrdiff_t>(
        indexOf(displayed, m_store.panel().selectedClipID.value()).value_or(0));
    const auto last = static_cast<std::ptrdiff_t>(displayed.size()) - 1;
    const auto to = std::clamp<std::ptrdiff_t>(from + command.rows, 0, last);
    const ClipItem clip = *displayed[static_cast<std::size_t>(to)];
    m_store.panel().selectedClipID.set(clip.id);
    // Every clip that the selection passes goes onto the clipboard, but for those that would first
    // have to be read from their files.
    if (!clip.isOverflow)
        m_actions.place(clip);
    return true;
}

bool PanelController::perform(panelcommands::TogglePin)
{
    if (const auto& selected = m_store.panel().selectedClipID.value())
        m_store.togglePin(*selected);
    return true;
}

void PanelController::noteIndex()
{
    m_selectedIndex
        = indexOf(m_store.filteredClips(), m_store.panel().selectedClipID.value()).value_or(0);
}

/// A key must never act on a clip that the user does not see, because the search has hidden it, it
/// has been unpinned in the tab of the pinned, deleted or evicted. The selection goes to the first
/// hit then, or to the clip that has come into its place, the last one where none has.
void PanelController::keepSelectionDisplayed()
{
    const auto& selected = m_store.panel().selectedClipID.value();
    const auto& displayed = m_store.filteredClips();
    if (const auto index = indexOf(displayed, selected))
        m_selectedIndex = *index;
    else if (selected) {
        m_host.hidePreview(); // as for any other move of the selection
        select(m_store, displayed, m_selectedIndex);
    }
}

/// The clip is copied first: what is done with it may move or end the one in the list.
void PanelController::withClip(
    const std::optional<ClipId>& id, const std::function<void(const ClipItem&)>& act)
{
    const ClipItem* const found = id ? m_store.find(*id) : nullptr;
    if (!found)
        return;
    const ClipItem clip = *found;
    act(clip);
}

} // namespace korvane
