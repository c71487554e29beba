#pragma once

#include "model/FilterTab.h"
#include "model/MainLoop.h"

#include <chrono>
#include <cstdint>
#include <map>

namespace korvane {

class ClipStore;

/// The timed change of tab, for keys and clicks alike: the bar shows the new tab at once, the list
/// follows when the bar's animation has ended. Its steps are told by the `PanelState`.
class TabSwitcher {
public:
    /// How long the bar takes to show the new tab, easing out.
    static constexpr std::chrono::milliseconds barAnimation { 200 };
    /// From the start of a switch until the list changes.
    static constexpr std::chrono::milliseconds untilCommit { 230 };
    /// From there until the list begins to fade back.
    static constexpr std::chrono::milliseconds untilSettled { 10 };
    /// How long the list takes to fade back, easing out.
    static constexpr std::chrono::milliseconds listFade { 150 };

    TabSwitcher(ClipStore& store, MainLoop& loop);
    TabSwitcher(const TabSwitcher&) = delete;
    TabSwitcher& operator=(const TabSwitcher&) = delete;

    /// Does nothing for the tab that filters the list already. A switch that is under way is not
    /// cancelled by the next: the list passes through every tab and ends on the last, on which the
    /// bar stands all the time.
    void switchTo(FilterTab tab);
    /// Switches to the tab `steps` further on than the one that the bar shows.
    void cycle(int steps);

private:
    void commit(FilterTab tab);
    void after(std::chrono::milliseconds delay, std::function<void()> step);

    ClipStore& m_store;
    MainLoop& m_loop;
    int m_pendingCommits = 0;
    std::uint64_t m_lastStep = 0;
    std::map<std::uint64_t, Timer> m_pendingSteps; // die with us: a step can never find us gone
};

} // namespace korvane
