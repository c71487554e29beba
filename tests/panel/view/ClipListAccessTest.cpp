#include "panel/view/ClipListAccess.h"

#include "panel/view/ClipListView.h"
#include "panel/view/PanelAccess.h"
#include "panel/view/PanelStyle.h"
#include "panel/view/Symbols.h"
#include "panel/view/ViewFixture.h"
#include "support/AccessEvents.h"
#include "support/Input.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMenu>

#include <memory>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using Done = test::FakeClipActions::Done;
    using Names = std::vector<std::string>;

    constexpr int listHeight = 306; // six rows

    struct ListAccessFixture : test::ViewFixture {
        explicit ListAccessFixture(int clips = 0)
        {
            addNumbered(clips);
            installPanelAccess();
            makeList();
        }
        void makeList()
        {
            list = std::make_unique<ClipListView>(
                store, controller, loop, symbols, TextReader(), [] {}, nullptr);
            list->resize(metrics::panelWidth, listHeight);
            list->show();
            test::settle();
            element = QAccessible::queryAccessibleInterface(list.get());
        }
        QAccessibleInterface& row(int index) const { return *element->child(index); }
        std::string name(int index) const
        {
            return row(index).text(QAccessible::Name).toStdString();
        }
        void act(int index, const QString& action)
        {
            row(index).actionInterface()->doAction(action);
            loop.turn();
        }

        test::AccessEvents events;
        Symbols symbols;
        std::unique_ptr<ClipListView> list;
        QAccessibleInterface* element = nullptr;
    };

    TEST(ClipListAccessTest, TheListIsAListOfItsClips)
    {
        const ListAccessFixture f(3);

        EXPECT_EQ(f.element->role(), QAccessible::List);
        EXPECT_EQ(f.element->text(QAccessible::Name), "Clips");
        EXPECT_EQ(test::childNames(*f.element),
            (Names { "clip 1, Text, just now, 1 of 3", "clip 2, Text, just now, 2 of 3",
                "clip 3, Text, just now, 3 of 3" }));
        EXPECT_EQ(f.row(0).role(), QAccessible::ListItem);
    }

    TEST(ClipListAccessTest, ARowTellsWhetherItIsPinnedAndHowOldItIs)
    {
        ListAccessFixture f(1);

        f.store.togglePin(f.idAt(0));
        f.loop.advance(5min);

        EXPECT_EQ(f.name(0), "clip 1, Text, 5m, pinned, 1 of 1");
    }

    TEST(ClipListAccessTest, ALargeClipSaysThatItIsLarge)
    {
        ListAccessFixture f;
        f.addLarge('a');

        EXPECT_NE(f.name(0).find(", large, 64 KB, 1 of 1"), std::string::npos) << f.name(0);
    }

    TEST(ClipListAccessTest, AnEmptyListHasNoChildren)
    {
        const ListAccessFixture f;

        EXPECT_EQ(f.element->childCount(), 0);
        EXPECT_EQ(f.element->child(0), nullptr);
        EXPECT_EQ(f.element->child(-1), nullptr);
    }

    TEST(ClipListAccessTest, AnEmptyListSaysInItsDescriptionWhatItShows)
    {
        ListAccessFixture f(1);
        EXPECT_EQ(f.element->text(QAccessible::Description), "");

        f.panel().panelSearch.set("q");

        EXPECT_EQ(f.element->text(QAccessible::Description),
            "Nothing found for “q”. Escape clears the search.");
    }

    TEST(ClipListAccessTest, TheChildrenAreTheRowsThatTabAndSearchLeave)
    {
        ListAccessFixture f(12);

        f.panel().panelSearch.set("clip 12");

        EXPECT_EQ(test::childNames(*f.element), (Names { "clip 12, Text, just now, 1 of 1" }));
    }

    TEST(ClipListAccessTest, ARowKnowsItsPlaceAndItsParent)
    {
        const ListAccessFixture f(3);

        EXPECT_EQ(f.element->indexOfChild(&f.row(2)), 2);
        EXPECT_EQ(f.row(2).parent(), f.element);
        EXPECT_EQ(f.row(2).childCount(), 0);
    }

    TEST(ClipListAccessTest, ARowStandsOnTheScreenWhereItIsPainted)
    {
        const ListAccessFixture f(10);
        f.list->setOffset(30);

        const auto place = f.row(2).rect();

        EXPECT_EQ(place.size(), QSize(metrics::panelWidth - 12, metrics::rowHeight));
        EXPECT_EQ(place.topLeft(), f.list->mapToGlobal(f.list->rowRect(2).topLeft().toPoint()));
        EXPECT_EQ(f.element->childAt(place.center().x(), place.center().y()), &f.row(2));
    }

    TEST(ClipListAccessTest, BetweenTheRowsAndOutsideTheListThereIsNone)
    {
        const ListAccessFixture f(10);
        const auto place = f.row(0).rect();

        EXPECT_EQ(f.element->childAt(place.center().x(), place.bottom() + 2), nullptr);
        EXPECT_EQ(f.element->childAt(place.center().x(), place.top() - 200), nullptr);
    }

    TEST(ClipListAccessTest, TheSelectedRowIsSelectedAndNoOther)
    {
        ListAccessFixture f(3);

        f.selectAt(1);

        EXPECT_TRUE(f.row(0).state().selectable);
        EXPECT_TRUE(f.row(0).state().focusable);
        EXPECT_FALSE(f.row(0).state().selected);
        EXPECT_TRUE(f.row(1).state().selected);
    }

    TEST(ClipListAccessTest, ARowThatIsScrolledAwayIsOffscreenAndInvisible)
    {
        const ListAccessFixture f(50);

        EXPECT_FALSE(f.row(5).state().invisible);
        EXPECT_TRUE(f.row(30).state().offscreen);
        EXPECT_TRUE(f.row(30).state().invisible);
        f.list->setOffset(30 * metrics::rowPitch);
        EXPECT_FALSE(f.row(30).state().offscreen);
        EXPECT_TRUE(f.row(5).state().invisible);
    }

    TEST(ClipListAccessTest, NoRowOfAHiddenListIsVisible)
    {
        const ListAccessFixture f(3);

        f.list->hide();

        EXPECT_TRUE(f.row(0).state().invisible);
    }

    TEST(ClipListAccessTest, PressingARowDoesWhatAClickDoes)
    {
        ListAccessFixture f(3);

        f.act(1, QAccessibleActionInterface::pressAction());

        EXPECT_EQ(f.actions.done, (std::vector<Done> { { "choose", "clip 2" } }));
        EXPECT_EQ(f.selected(), "clip 2");
    }

    TEST(ClipListAccessTest, PastingARowDoesWhatReturnDoes)
    {
        ListAccessFixture f(3);

        f.act(1, "Paste");

        EXPECT_EQ(f.actions.done, (std::vector<Done> { { "activate", "clip 2" } }));
    }

    TEST(ClipListAccessTest, FocusingARowSelectsItAndPutsNothingOnTheClipboard)
    {
        ListAccessFixture f(3);

        f.act(2, QAccessibleActionInterface::setFocusAction());

        EXPECT_EQ(f.selected(), "clip 3");
        EXPECT_TRUE(f.actions.done.empty());
    }

    TEST(ClipListAccessTest, ARowsMenuCanBeOpened)
    {
        ListAccessFixture f(3);

        f.act(1, QAccessibleActionInterface::showMenuAction());

        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        EXPECT_EQ(menu->actions().first()->text(), "Copy");
        EXPECT_EQ(menu->activeAction(), menu->actions().first());
        QAccessible::queryAccessibleInterface(menu)->child(0)->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
        EXPECT_EQ(f.actions.done, (std::vector<Done> { { "copy", "clip 2" } }));
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        test::settle();
    }

    TEST(ClipListAccessTest, AnActionThatIsNotThereDoesNothing)
    {
        ListAccessFixture f(3);

        f.act(1, "Bake");

        EXPECT_TRUE(f.actions.done.empty());
        EXPECT_EQ(f.selected(), "none");
    }

    TEST(ClipListAccessTest, EachActionIsExplained)
    {
        const ListAccessFixture f(1);
        auto& actions = *f.row(0).actionInterface();

        EXPECT_EQ(
            actions.actionNames(), (QStringList { "Press", "ShowMenu", "Paste", "SetFocus" }));
        EXPECT_EQ(actions.localizedActionName("Paste"), "Paste Directly");
        for (const auto& name : actions.actionNames())
            EXPECT_FALSE(actions.localizedActionDescription(name).isEmpty()) << name.toStdString();
    }

    TEST(ClipListAccessTest, AnActionWhoseListHasEndedDoesNothing)
    {
        ListAccessFixture f(3);
        f.row(1).actionInterface()->doAction(QAccessibleActionInterface::pressAction());

        f.list.reset();
        f.loop.turn();

        EXPECT_TRUE(f.actions.done.empty());
    }

    TEST(ClipListAccessTest, ARowStaysTheSameElementWhereverItsClipMoves)
    {
        ListAccessFixture f(3);
        const auto number = QAccessible::uniqueId(&f.row(1));

        f.add("a new copy");

        EXPECT_EQ(QAccessible::accessibleInterface(number), &f.row(2));
        EXPECT_EQ(f.name(2), "clip 2, Text, just now, 3 of 4");
    }

    TEST(ClipListAccessTest, ARowThatTheSearchHidesIsInvisibleUntilItIsDisplayedAgain)
    {
        ListAccessFixture f(3);
        auto& row = f.row(1);

        f.panel().panelSearch.set("clip 3");

        EXPECT_TRUE(row.isValid());
        EXPECT_TRUE(row.state().invisible);
        EXPECT_EQ(f.element->indexOfChild(&row), -1);
        EXPECT_TRUE(row.text(QAccessible::Name).isEmpty());
        EXPECT_TRUE(row.rect().isEmpty());
        f.panel().panelSearch.set("");
        EXPECT_EQ(&f.row(1), &row);
        EXPECT_FALSE(row.state().invisible);
    }

    TEST(ClipListAccessTest, TheElementOfAClipThatIsDeletedIsGoneAndThatIsTold)
    {
        ListAccessFixture f(3);
        const auto number = QAccessible::uniqueId(&f.row(1));
        f.events.clear();

        f.controller.remove(f.idAt(1));

        EXPECT_EQ(QAccessible::accessibleInterface(number), nullptr);
        EXPECT_EQ(f.events.names(QAccessible::ObjectDestroyed).size(), 1U);
    }

    TEST(ClipListAccessTest, DeletingAClipThatNobodyHasAskedForTellsNothing)
    {
        ListAccessFixture f(3);
        f.row(0).text(QAccessible::Name);
        f.events.clear();

        f.controller.remove(f.idAt(1));

        EXPECT_TRUE(f.events.names(QAccessible::ObjectDestroyed).empty());
    }

    TEST(ClipListAccessTest, TheRowsOfAListThatHasEndedAreGone)
    {
        ListAccessFixture f(3);
        const auto list = QAccessible::uniqueId(f.element);
        const auto row = QAccessible::uniqueId(&f.row(1));

        f.list.reset();

        EXPECT_EQ(QAccessible::accessibleInterface(list), nullptr);
        EXPECT_EQ(QAccessible::accessibleInterface(row), nullptr);
        f.add("a copy after the end");
    }

    TEST(ClipListAccessTest, ElementsAreMadeOnlyForRowsThatSomebodyAsksFor)
    {
        ListAccessFixture f;
        f.store.setMaxClips(9999);
        f.store.savingOnce([&f] { f.addNumbered(9999); });

        const auto first = QAccessible::uniqueId(&f.row(9000));
        const auto second = QAccessible::uniqueId(&f.row(0));

        EXPECT_EQ(f.element->childCount(), 9999);
        EXPECT_EQ(second, first + 1);
        EXPECT_EQ(f.name(9000), "clip 9001, Text, just now, 9001 of 9999");
    }

    TEST(ClipListAccessTest, TheFieldOfARenameComesAfterTheRowsAndIsCalledName)
    {
        ListAccessFixture f(3);

        f.list->beginRename(f.idAt(1));

        ASSERT_EQ(f.element->childCount(), 4);
        auto* const field = f.element->child(3);
        EXPECT_EQ(field->text(QAccessible::Name), "Name");
        EXPECT_EQ(field->role(), QAccessible::EditableText);
        EXPECT_EQ(f.element->indexOfChild(field), 3);
        f.list->giveUpRename();
        EXPECT_EQ(f.element->childCount(), 3);
        EXPECT_EQ(f.element->indexOfChild(field), -1);
    }

} // namespace
} // namespace korvane
