#include "panel/PanelController.h"

#include "panel/PanelFixture.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using test::PanelFixture;
    using Texts = PanelFixture::Texts;
    using Done = std::vector<test::FakeClipActions::Done>;

    TEST(PanelSelectionTest, WithoutASelectionDownSelectsTheSecondClip)
    {
        PanelFixture f;
        f.fill({ "a", "b", "c" });

        EXPECT_TRUE(f.press(keycodes::downArrow));

        EXPECT_EQ(f.selected(), "b");
    }

    TEST(PanelSelectionTest, WithoutASelectionUpSelectsTheFirstClip)
    {
        PanelFixture f;
        f.fill({ "a", "b", "c" });

        EXPECT_TRUE(f.press(keycodes::upArrow));

        EXPECT_EQ(f.selected(), "a");
    }

    TEST(PanelSelectionTest, InAListOfOneBothArrowsSelectIt)
    {
        for (const auto arrow : { keycodes::upArrow, keycodes::downArrow }) {
            PanelFixture f;
            f.fill({ "a" });

            EXPECT_TRUE(f.press(arrow));

            EXPECT_EQ(f.selected(), "a");
        }
    }

    TEST(PanelSelectionTest, ArrowsOnAnEmptyListAreConsumedAndDoNothing)
    {
        PanelFixture f;

        EXPECT_TRUE(f.press(keycodes::downArrow));

        EXPECT_EQ(f.selected(), "none");
        EXPECT_EQ(f.actions.done, Done {});
    }

    TEST(PanelSelectionTest, EveryClipThatTheSelectionPassesIsPlacedOnTheClipboard)
    {
        PanelFixture f;
        f.fill({ "a", "b", "c" });
        f.selectAt(0);

        f.press(keycodes::downArrow);
        f.press(keycodes::downArrow);

        EXPECT_EQ(f.actions.done, (Done { { "place", "b" }, { "place", "c" } }));
    }

    TEST(PanelSelectionTest, AtTheEndsTheSelectionStaysAndIsPlacedAgain)
    {
        PanelFixture f;
        f.fill({ "a", "b" });

        f.selectAt(0);
        f.press(keycodes::upArrow);
        EXPECT_EQ(f.selected(), "a");

        f.selectAt(1);
        f.press(keycodes::downArrow);
        EXPECT_EQ(f.selected(), "b");
        EXPECT_EQ(f.actions.done, (Done { { "place", "a" }, { "place", "b" } }));
    }

    TEST(PanelSelectionTest, ALargeClipIsSelectedButNotPlaced)
    {
        PanelFixture f;
        f.addLarge('x');
        f.add("a");
        f.selectAt(0);

        f.press(keycodes::downArrow);

        EXPECT_EQ(f.store.panel().selectedClipID.value(), f.idAt(1));
        EXPECT_EQ(f.actions.done, Done {});
    }

    TEST(PanelSelectionTest, ASelectionThatIsNotDisplayedCountsAsTheFirst)
    {
        PanelFixture f;
        f.fill({ "a", "b", "c" });
        f.store.panel().selectedClipID.set(ClipId::random());

        f.press(keycodes::downArrow);

        EXPECT_EQ(f.selected(), "b");
    }

    TEST(PanelSelectionTest, ArrowsAndTabHideThePreview)
    {
        PanelFixture f;
        f.fill({ "a", "b" });

        f.press(keycodes::downArrow);
        f.press(keycodes::upArrow);
        f.press(keycodes::tab);

        EXPECT_EQ(f.host.previewHides, 3);
    }

    TEST(PanelSelectionTest, DeletingSelectsTheClipThatFollowed)
    {
        PanelFixture f;
        f.fill({ "a", "b", "c" });
        f.selectAt(1);

        EXPECT_TRUE(f.press(keycodes::backspace, modifiers::command));

        EXPECT_EQ(f.displayed(), (Texts { "a", "c" }));
        EXPECT_EQ(f.selected(), "c");
    }

    TEST(PanelSelectionTest, DeletingTheLastClipSelectsTheNewLastOne)
    {
        PanelFixture f;
        f.fill({ "a", "b", "c" });
        f.selectAt(2);

        f.press(keycodes::backspace, modifiers::command);

        EXPECT_EQ(f.selected(), "b");
    }

    TEST(PanelSelectionTest, DeletingTheOnlyClipClearsTheSelection)
    {
        PanelFixture f;
        f.fill({ "a" });
        f.selectAt(0);

        f.press(keycodes::backspace, modifiers::command);

        EXPECT_EQ(f.store.panel().selectedClipID.value(), std::nullopt);
        EXPECT_TRUE(f.store.clips().empty());
    }

    TEST(PanelSelectionTest, DeletingASelectedClipThatIsNotDisplayedSelectsTheFirstDisplayed)
    {
        PanelFixture f;
        f.fill({ "a", "b", "c", "d" });
        f.store.togglePin(f.idAt(0));
        f.store.togglePin(f.idAt(1));
        f.store.togglePin(f.idAt(2));
        f.selectAt(3);
        f.store.panel().panelFilterTab.set(FilterTab::pinned);

        f.press(keycodes::backspace, modifiers::command);

        EXPECT_EQ(f.store.clips().size(), 3U);
        EXPECT_EQ(f.displayed(), (Texts { "a", "b", "c" }));
        EXPECT_EQ(f.selected(), "a");
    }

    /// The selected clip is the third of all and the first of the pinned.
    struct SelectedInTwoTabs : PanelFixture {
        SelectedInTwoTabs()
        {
            fill({ "a", "b", "c", "d", "e", "f" });
            for (const std::size_t index : { 2U, 3U, 4U, 5U })
                store.togglePin(idAt(index));
            selectAt(2);
            tabs.switchTo(FilterTab::pinned);
            loop.advance(std::chrono::seconds(1));
        }
    };

    TEST(
        PanelSelectionTest, AfterAChangeOfTabThatKeepsTheSelectionDeletingSelectsTheClipThatFollows)
    {
        SelectedInTwoTabs f;
        ASSERT_EQ(f.selected(), "c");

        f.press(keycodes::backspace, modifiers::command);

        EXPECT_EQ(f.selected(), "d");
    }

    TEST(PanelSelectionTest,
        AfterAChangeOfTabThatKeepsTheSelectionUnpinningSelectsTheClipThatFollows)
    {
        SelectedInTwoTabs f;

        f.type("p", modifiers::command);

        EXPECT_EQ(f.selected(), "d");
    }

    TEST(PanelSelectionTest, DeletingRemovesTheOverflowFile)
    {
        PanelFixture f;
        f.addLarge('x');
        f.selectAt(0);
        const std::filesystem::path file = f.store.clips().front().overflowPath.value_or("");
        ASSERT_TRUE(std::filesystem::exists(file));

        f.press(keycodes::backspace, modifiers::command);

        EXPECT_FALSE(std::filesystem::exists(file));
    }

    TEST(PanelSelectionTest, ASearchThatHidesTheSelectedClipSelectsTheFirstHit)
    {
        PanelFixture f;
        f.fill({ "alpha", "beta one", "beta two" });
        f.selectAt(0);

        f.store.panel().panelSearch.set("beta");

        EXPECT_EQ(f.selected(), "beta one");
        EXPECT_EQ(f.actions.done, Done {});
    }

    TEST(PanelSelectionTest, ASearchThatShowsTheSelectedClipKeepsIt)
    {
        PanelFixture f;
        f.fill({ "alpha", "beta one", "beta two" });
        f.selectAt(2);

        f.store.panel().panelSearch.set("beta");

        EXPECT_EQ(f.selected(), "beta two");
    }

    TEST(PanelSelectionTest, ASearchWithoutAHitClearsTheSelection)
    {
        PanelFixture f;
        f.fill({ "alpha" });
        f.selectAt(0);

        f.store.panel().panelSearch.set("zzz");
        f.press(keycodes::returnKey);

        EXPECT_EQ(f.store.panel().selectedClipID.value(), std::nullopt);
        EXPECT_EQ(f.actions.done, Done {});
    }

    TEST(PanelSelectionTest, ASearchThatIsCorrectedAfterItHadNoHitSelectsItsFirstOne)
    {
        for (const auto* const corrected : { "", "b" }) {
            PanelFixture f;
            f.fill({ "beta", "bravo" });
            f.selectAt(1);
            f.store.panel().panelSearch.set("bzz");

            f.store.panel().panelSearch.set(corrected);
            f.press(keycodes::returnKey);

            EXPECT_EQ(f.selected(), "beta");
            EXPECT_EQ(f.actions.done.size(), 1U);
        }
    }

    TEST(PanelSelectionTest, SoDoesOneThatIsCorrectedInATabWithoutHits)
    {
        PanelFixture f;
        f.fill({ "beta", "bravo" });
        f.store.togglePin(f.idAt(1));
        f.selectAt(0);
        f.store.panel().panelSearch.set("beta");
        f.store.panel().panelFilterTab.set(FilterTab::pinned);
        f.store.panel().selectedClipID.set(std::nullopt); // as a switch to an empty tab does it

        f.store.panel().panelSearch.set("b");

        EXPECT_EQ(f.selected(), "bravo");
    }

    TEST(PanelSelectionTest, AClipThatIsUnpinnedInThePinnedTabGivesTheSelectionToTheOneInItsPlace)
    {
        PanelFixture f;
        f.fill({ "a", "b", "c" });
        for (const std::size_t index : { 0U, 1U, 2U })
            f.store.togglePin(f.idAt(index));
        f.store.panel().panelFilterTab.set(FilterTab::pinned);
        f.selectAt(1);

        f.type("p", modifiers::command);
        EXPECT_EQ(f.selected(), "c");
        f.controller.togglePin(f.idAt(1)); // by its row's menu, the last one
        EXPECT_EQ(f.selected(), "a");
        f.type("p", modifiers::command);
        EXPECT_EQ(f.store.panel().selectedClipID.value(), std::nullopt);
    }

    TEST(PanelSelectionTest, AClipWhoseNewNameIsNotSearchedForGivesTheSelectionOn)
    {
        PanelFixture f;
        f.fill({ "one", "two", "three" });
        for (const std::size_t index : { 0U, 1U, 2U })
            f.store.rename(f.idAt(index), "name");
        f.store.panel().panelSearch.set("name");
        f.selectAt(1);

        f.controller.rename(f.idAt(1), "other");

        EXPECT_EQ(f.displayed(), (Texts { "one", "three" }));
        EXPECT_EQ(f.selected(), "three");
    }

    TEST(PanelSelectionTest, AClipThatIsEvictedGivesTheSelectionToTheLastThatIsLeft)
    {
        PanelFixture f;
        f.store.setMaxClips(3);
        f.fill({ "a", "b", "c" });
        f.selectAt(2);

        f.add("new");

        EXPECT_EQ(f.displayed(), (Texts { "new", "a", "b" }));
        EXPECT_EQ(f.selected(), "b");
    }

    TEST(PanelSelectionTest, ACopyWhileNothingIsSelectedSelectsNothing)
    {
        PanelFixture f;

        f.add("new");

        EXPECT_EQ(f.store.panel().selectedClipID.value(), std::nullopt);
    }

} // namespace
} // namespace korvane
