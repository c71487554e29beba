#include "panel/view/PanelAnnouncer.h"

#include "panel/view/AnnouncerFixture.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using test::AnnouncerFixture;
    using test::Listener;
    using Names = AnnouncerFixture::Names;

    TEST(PanelAnnouncerTest, AnOpeningTellsTheTabTheNumberOfClipsAndTheSelectedOne)
    {
        const AnnouncerFixture f(3);

        EXPECT_EQ(
            f.events->announced, (Names { "All, 4 clips, let x = 1;, Code, just now, 1 of 4" }));
    }

    TEST(PanelAnnouncerTest, EachOpeningIsToldOnceAndNothingOfTheLastOneWithIt)
    {
        AnnouncerFixture f(3);
        f.key(keycodes::downArrow);
        f.view->hide();
        f.forget();

        f.open();

        EXPECT_EQ(
            f.events->announced, (Names { "All, 4 clips, let x = 1;, Code, just now, 1 of 4" }));
        EXPECT_EQ(f.focused(), (Names { "Search" }));
    }

    TEST(PanelAnnouncerTest, ARowThatTheArrowKeysSelectGetsTheFocus)
    {
        AnnouncerFixture f(3);
        f.forget();

        f.key(keycodes::downArrow);

        const test::AccessEvents::Event focus { QAccessible::Focus,
            "clip 1, Text, just now, 2 of 4", true, true };
        EXPECT_EQ(f.events->events.back(), focus);
        EXPECT_EQ(f.selections(),
            (Names { "let x = 1;, Code, just now, 1 of 4", "clip 1, Text, just now, 2 of 4" }));
        EXPECT_TRUE(f.events->announced.empty());
    }

    TEST(PanelAnnouncerTest, TheKeyboardStaysWithTheSearchField)
    {
        AnnouncerFixture f(3);

        f.key(keycodes::downArrow);

        EXPECT_EQ(QApplication::focusWidget(), &f.view->search().field());
    }

    TEST(PanelAnnouncerTest, AnArrowKeyThatLeavesTheSelectionTellsNothing)
    {
        AnnouncerFixture f(3);
        f.forget();

        f.key(keycodes::upArrow);

        EXPECT_TRUE(f.focused().empty());
        EXPECT_TRUE(f.selections().empty());
        EXPECT_TRUE(f.events->announced.empty());
    }

    TEST(PanelAnnouncerTest, TypingTellsHowManyClipsAreLeftAndWhichOneIsSelected)
    {
        AnnouncerFixture f(3);
        f.forget();

        f.type("c");
        f.type("l");

        EXPECT_EQ(
            f.events->announced, (Names { "3 clips, clip 1, Text, just now, 1 of 3", "3 clips" }));
    }

    TEST(PanelAnnouncerTest, ASearchThatKeepsTheSelectionTellsOnlyTheNumber)
    {
        AnnouncerFixture f(3);
        f.forget();

        f.type("x");

        EXPECT_EQ(f.events->announced, (Names { "1 clip" }));
        EXPECT_TRUE(f.selections().empty());
    }

    TEST(PanelAnnouncerTest, ASearchWithoutAHitSaysSo)
    {
        AnnouncerFixture f(3);
        f.forget();

        f.type("q");

        EXPECT_EQ(f.events->announced, (Names { "No clips" }));
    }

    TEST(PanelAnnouncerTest, WhoTypesAfterTheArrowKeysIsToldThatTheFieldHasTheFocusAgain)
    {
        AnnouncerFixture f(3);
        f.key(keycodes::downArrow);
        f.forget();

        f.type("c");
        f.type("l");

        EXPECT_EQ(f.focused(), (Names { "Search" }));
        EXPECT_EQ(f.events->announced, (Names { "3 clips", "3 clips" }));
    }

    TEST(PanelAnnouncerTest, EscapeInASearchTellsTheWholeListAndItsFirstClip)
    {
        AnnouncerFixture f(3);
        f.type("clip");
        f.forget();

        f.key(keycodes::escape);

        EXPECT_EQ(f.events->announced, (Names { "4 clips, let x = 1;, Code, just now, 1 of 4" }));
    }

    TEST(PanelAnnouncerTest, AChangeOfTabIsSeenAtOnceAndToldWhenTheListHasChanged)
    {
        AnnouncerFixture f(3);
        f.forget();

        f.controller.switchTab(FilterTab::text);
        f.loop.advance(0ms);
        EXPECT_EQ(f.selections(), (Names { "All", "Text" }));
        EXPECT_TRUE(f.events->announced.empty());
        f.loop.advance(1s);

        EXPECT_EQ(f.events->announced, (Names { "Text, 3 clips" }));
        EXPECT_EQ(f.focused(), (Names { "clip 1, Text, just now, 1 of 3" }));
    }

    TEST(PanelAnnouncerTest, ATabWithoutClipsSaysSo)
    {
        AnnouncerFixture f(3);
        f.forget();

        f.controller.switchTab(FilterTab::emoji);
        f.loop.advance(1s);

        EXPECT_EQ(f.events->announced, (Names { "Emoji, no clips" }));
    }

    TEST(PanelAnnouncerTest, ADeletionTellsTheClipThatIsSelectedThen)
    {
        AnnouncerFixture f(3);
        f.key(keycodes::downArrow);
        f.forget();

        f.controller.remove(f.idAt(1));
        f.loop.advance(0ms);

        EXPECT_EQ(f.focused(), (Names { "clip 2, Text, just now, 2 of 3" }));
        EXPECT_TRUE(f.events->announced.empty());
    }

    TEST(PanelAnnouncerTest, TheDeletionOfTheLastClipSaysThatThereIsNoneAndReturnsToTheField)
    {
        AnnouncerFixture f(1);
        f.key(keycodes::downArrow);
        f.controller.remove(f.idAt(0));
        f.forget();

        f.controller.remove(f.idAt(0));
        f.loop.advance(0ms);

        EXPECT_EQ(f.events->announced, (Names { "No clips" }));
        EXPECT_EQ(f.focused(), (Names { "Search" }));
    }

    TEST(PanelAnnouncerTest, APinOfTheSelectedClipIsTold)
    {
        AnnouncerFixture f(3);
        f.forget();

        f.controller.togglePin(f.idAt(0));
        f.loop.advance(0ms);

        EXPECT_EQ(f.events->announced, (Names { "let x = 1;, Code, just now, pinned, 1 of 4" }));
    }

    TEST(PanelAnnouncerTest, AfterARenameTheRowHasTheFocusAgainUnderItsNewName)
    {
        AnnouncerFixture f(3);
        f.key(keycodes::downArrow);
        f.view->list().beginRename(f.idAt(1));
        test::typeText(*QApplication::focusWidget(), "Greeting");
        f.forget();

        f.key(keycodes::returnKey);

        EXPECT_EQ(f.focused().back(), "Greeting, Text, just now, 2 of 4");
        EXPECT_TRUE(f.events->announced.empty());
    }

    TEST(PanelAnnouncerTest, ACopyMadeMeanwhileIsNotAnnounced)
    {
        AnnouncerFixture f(3);
        f.forget();

        f.add("a new copy");
        f.loop.advance(0ms);

        EXPECT_TRUE(f.events->announced.empty());
        EXPECT_TRUE(f.focused().empty());
    }

    TEST(PanelAnnouncerTest, NothingIsToldOfAHiddenPanel)
    {
        AnnouncerFixture f(3);
        f.view->hide();
        f.forget();

        f.selectAt(2);
        f.panel().panelSearch.set("clip");
        f.loop.advance(1s);

        EXPECT_TRUE(f.events->announced.empty());
        EXPECT_TRUE(f.focused().empty());
        EXPECT_TRUE(f.selections().empty());
    }

    TEST(PanelAnnouncerTest, WhileNobodyListensNothingIsPreparedAndNothingWaits)
    {
        AnnouncerFixture f(3, Listener::absent);
        const auto timers = f.loop.pendingTimers();

        f.selectAt(2);
        f.controller.remove(f.idAt(1));

        EXPECT_EQ(f.loop.pendingTimers(), timers);
    }

    TEST(PanelAnnouncerTest, WhoBeginsToListenWhileThePanelIsOpenIsToldWhereItStands)
    {
        AnnouncerFixture f(3, Listener::absent);
        f.events.emplace();

        f.key(keycodes::downArrow);

        EXPECT_EQ(f.events->announced, (Names { "All, 4 clips, clip 1, Text, just now, 2 of 4" }));
    }

} // namespace
} // namespace korvane
