#include "panel/TabSwitcher.h"

#include "model/ClipStore.h"
#include "panel/Selection.h"

#include <utility>

namespace korvane {

TabSwitcher::TabSwitcher(ClipStore& store, MainLoop& loop)
    : m_store(store)
    , m_loop(loop)
{
}

void TabSwitcher::switchTo(FilterTab tab)
{
    auto& panel = m_store.panel();
    if (panel.panelFilterTab.value() == tab)
        return;
    panel.tabDisplayed.set(tab);
    panel.isTabSwitching.set(true);
    ++m_pendingCommits;
    after(untilCommit, [this, tab] { commit(tab); });
}

void TabSwitcher::cycle(int steps)
{
    switchTo(neighbour(m_store.panel().shownTab(), steps));
}

void TabSwitcher::commit(FilterTab tab)
{
    auto& panel = m_store.panel();
    panel.panelFilterTab.set(tab);
    selectFirst(m_store);
    // While another commit is to come, the bar stays on its tab: it would run back otherwise, and
    // the next press would start from there.
    if (--m_pendingCommits == 0)
        panel.tabDisplayed.set(std::nullopt);
    after(untilSettled, [this] { m_store.panel().isTabSwitching.set(false); });
}

void TabSwitcher::after(std::chrono::milliseconds delay, std::function<void()> step)
{
    const auto number = ++m_lastStep;
    m_pendingSteps.emplace(number, m_loop.after(delay, [this, number, step = std::move(step)] {
        // Taken out first and ended last: it owns what is running.
        const auto self = m_pendingSteps.extract(number);
        step();
    }));
}

} // namespace korvane
