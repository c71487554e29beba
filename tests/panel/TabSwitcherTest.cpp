#include "panel/TabSwitcher.h"

#include "panel/PanelFixture.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using test::PanelFixture;
    using Tabs = std::vector<FilterTab>;

    std::optional<FilterTab> tabDisplayed(const PanelFixture& f)
    {
        return f.store.panel().tabDisplayed.value();
    }
    FilterTab filterTab(const PanelFixture& f)
    {
        return f.store.panel().panelFilterTab.value();
    }
    bool isSwitching(const PanelFixture& f)
    {
        return f.store.panel().isTabSwitching.value();
    }

    TEST(TabSwitcherTest, TheBarShowsTheNewTabAtOnceAndTheListKeepsTheOld)
    {
        PanelFixture f;

        f.tabs.switchTo(FilterTab::url);

        EXPECT_EQ(tabDisplayed(f), FilterTab::url);
        EXPECT_TRUE(isSwitching(f));
        EXPECT_EQ(filterTab(f), FilterTab::all);
    }

    TEST(TabSwitcherTest, TheListChangesAfter230Milliseconds)
    {
        PanelFixture f;
        f.tabs.switchTo(FilterTab::url);

        f.loop.advance(229ms);
        EXPECT_EQ(filterTab(f), FilterTab::all);

        f.loop.advance(1ms);
        EXPECT_EQ(filterTab(f), FilterTab::url);
        EXPECT_EQ(tabDisplayed(f), std::nullopt);
        EXPECT_TRUE(isSwitching(f));
    }

    TEST(TabSwitcherTest, TheListFadesBackTenMillisecondsLater)
    {
        PanelFixture f;
        f.tabs.switchTo(FilterTab::url);

        f.loop.advance(239ms);
        EXPECT_TRUE(isSwitching(f));

        f.loop.advance(1ms);
        EXPECT_FALSE(isSwitching(f));
        EXPECT_EQ(f.loop.pendingTimers(), 0U);
    }

    TEST(TabSwitcherTest, TheFirstClipOfTheNewListIsSelected)
    {
        PanelFixture f;
        f.fill({ "word", "https://b.example/", "https://a.example/" });
        f.add("https://c.example/", ClipType::url);
        f.add("https://d.example/", ClipType::url);
        f.selectAt(3);

        f.tabs.switchTo(FilterTab::url);
        f.loop.advance(230ms);

        EXPECT_EQ(f.selected(), "https://d.example/");
    }

    TEST(TabSwitcherTest, AnEmptyListClearsTheSelection)
    {
        PanelFixture f;
        f.fill({ "word" });
        f.selectAt(0);

        f.tabs.switchTo(FilterTab::files);
        f.loop.advance(230ms);

        EXPECT_EQ(f.store.panel().selectedClipID.value(), std::nullopt);
    }

    TEST(TabSwitcherTest, TheTabThatFiltersAlreadyStartsNothing)
    {
        PanelFixture f;
        f.fill({ "a", "b" });
        f.selectAt(1);
        const auto timers = f.loop.pendingTimers();

        f.tabs.switchTo(FilterTab::all);

        EXPECT_EQ(tabDisplayed(f), std::nullopt);
        EXPECT_FALSE(isSwitching(f));
        EXPECT_EQ(f.loop.pendingTimers(), timers);
        f.loop.advance(1s);
        EXPECT_EQ(f.selected(), "b");
    }

    TEST(TabSwitcherTest, QuickSwitchesPassThroughEveryTabInTheirOrder)
    {
        PanelFixture f;
        Tabs seen;
        const auto connection = f.store.panel().panelFilterTab.onChange(
            [&seen](FilterTab tab) { seen.push_back(tab); });

        f.tabs.switchTo(FilterTab::url);
        f.loop.advance(50ms);
        f.tabs.switchTo(FilterTab::code);
        f.loop.advance(50ms);
        f.tabs.switchTo(FilterTab::large);
        f.loop.advance(1s);

        EXPECT_EQ(seen, (Tabs { FilterTab::url, FilterTab::code, FilterTab::large }));
    }

    TEST(TabSwitcherTest, ThreeStepsWithinATenthOfASecondEndOnTheFourthTab)
    {
        PanelFixture f;
        Tabs shown;
        const auto connection = f.store.panel().tabDisplayed.onChange([&shown](const auto& tab) {
            if (tab)
                shown.push_back(*tab);
        });

        f.tabs.cycle(1);
        f.loop.advance(50ms);
        f.tabs.cycle(1);
        f.loop.advance(40ms);
        f.tabs.cycle(1);
        f.loop.advance(1s);

        EXPECT_EQ(shown, (Tabs { FilterTab::pinned, FilterTab::text, FilterTab::url }));
        EXPECT_EQ(filterTab(f), FilterTab::url);
        EXPECT_FALSE(isSwitching(f));
    }

    TEST(TabSwitcherTest, TheBarStaysOnTheLastTabWhileTheListPassesThroughTheOthers)
    {
        PanelFixture f;
        f.tabs.switchTo(FilterTab::url);
        f.loop.advance(100ms);
        f.tabs.switchTo(FilterTab::code);

        f.loop.advance(130ms);
        EXPECT_EQ(filterTab(f), FilterTab::url);
        EXPECT_EQ(tabDisplayed(f), FilterTab::code);

        f.loop.advance(100ms);
        EXPECT_EQ(filterTab(f), FilterTab::code);
        EXPECT_EQ(tabDisplayed(f), std::nullopt);
    }

    TEST(TabSwitcherTest, EveryStepCountsAlsoBetweenTheCommitsOfEarlierOnes)
    {
        PanelFixture f;

        f.tabs.cycle(1); // commits at 230 ms
        f.loop.advance(100ms);
        f.tabs.cycle(1);
        f.loop.advance(100ms);
        f.tabs.cycle(1);
        f.loop.advance(50ms);
        f.tabs.cycle(1);
        f.loop.advance(1s);

        EXPECT_EQ(filterTab(f), FilterTab::code);
        EXPECT_EQ(tabDisplayed(f), std::nullopt);
    }

    TEST(TabSwitcherTest, BackwardFromTheFirstTabIsTheNinth)
    {
        PanelFixture f;

        f.tabs.cycle(-1);
        f.loop.advance(1s);

        EXPECT_EQ(filterTab(f), FilterTab::large);
    }

    TEST(TabSwitcherTest, ForwardFromTheLastTabIsTheFirst)
    {
        PanelFixture f;
        f.store.panel().panelFilterTab.set(FilterTab::large);

        f.tabs.cycle(1);
        f.loop.advance(1s);

        EXPECT_EQ(filterTab(f), FilterTab::all);
    }

    TEST(TabSwitcherTest, BackToTheFilteringTabDuringASwitchDoesNotCancelIt)
    {
        PanelFixture f;
        f.tabs.switchTo(FilterTab::url);

        f.tabs.switchTo(FilterTab::all);
        f.loop.advance(1s);

        EXPECT_EQ(filterTab(f), FilterTab::url);
    }

    TEST(TabSwitcherTest, ASwitchThatIsUnderWayEndsWithTheSwitcher)
    {
        PanelFixture f;
        {
            TabSwitcher shortLived(f.store, f.loop);
            shortLived.switchTo(FilterTab::url);
        }

        f.loop.advance(1s);

        EXPECT_EQ(filterTab(f), FilterTab::all);
        EXPECT_EQ(f.loop.pendingTimers(), 0U);
    }

    /// The first of two clips is selected, the second one is pinned, and the list is on its way to
    /// the tab of the pinned.
    struct OnTheWayToPinned : PanelFixture {
        OnTheWayToPinned()
        {
            fill({ "plain", "pinned" });
            store.togglePin(idAt(1));
            selectAt(0);
            press(keycodes::tab);
        }
    };

    TEST(TabSwitcherTest, UntilTheListFollowsAKeyMeetsTheClipsThatItStillHas)
    {
        OnTheWayToPinned f;

        f.press(keycodes::returnKey);

        ASSERT_EQ(f.actions.done.size(), 1U);
        EXPECT_EQ(f.actions.done.front().second, "plain");
    }

    TEST(TabSwitcherTest, NoKeyEndsOrHastensASwitch)
    {
        for (const auto key : { keycodes::returnKey, keycodes::space, keycodes::downArrow,
                 keycodes::escape, keycodes::tab }) {
            OnTheWayToPinned f;

            f.press(key);

            EXPECT_EQ(filterTab(f), FilterTab::all) << key;
            f.loop.advance(230ms);
            EXPECT_EQ(filterTab(f), key == keycodes::tab ? FilterTab::text : FilterTab::pinned)
                << key;
        }
    }

} // namespace
} // namespace korvane
