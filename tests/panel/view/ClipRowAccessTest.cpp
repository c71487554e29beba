#include "panel/view/ClipRowAccess.h"

#include "panel/view/ListAccessFixture.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMenu>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using test::ListAccessFixture;
    using Done = test::FakeClipActions::Done;

    TEST(ClipRowAccessTest, ARowTellsWhetherItIsPinnedAndHowOldItIs)
    {
        ListAccessFixture f(1);

        f.store.togglePin(f.idAt(0));
        f.loop.advance(5min);

        EXPECT_EQ(f.name(0), "clip 1, Text, 5m, pinned, 1 of 1");
    }

    TEST(ClipRowAccessTest, ALargeClipSaysThatItIsLarge)
    {
        ListAccessFixture f;
        f.addLarge('a');

        EXPECT_NE(f.name(0).find(", large, 64 KB, 1 of 1"), std::string::npos) << f.name(0);
    }

    TEST(ClipRowAccessTest, ARowKnowsItsPlaceAndItsParent)
    {
        const ListAccessFixture f(3);

        EXPECT_EQ(f.element->indexOfChild(&f.row(2)), 2);
        EXPECT_EQ(f.row(2).parent(), f.element);
        EXPECT_EQ(f.row(2).childCount(), 0);
    }

    TEST(ClipRowAccessTest, ARowStandsOnTheScreenWhereItIsPainted)
    {
        const ListAccessFixture f(10);
        f.list->setOffset(30);

        const auto place = f.row(2).rect();

        EXPECT_EQ(place.size(), QSize(metrics::panelWidth - 12, metrics::rowHeight));
        EXPECT_EQ(place.topLeft(), f.list->mapToGlobal(f.list->rowRect(2).topLeft().toPoint()));
        EXPECT_EQ(f.element->childAt(place.center().x(), place.center().y()), &f.row(2));
    }

    TEST(ClipRowAccessTest, TheSelectedRowIsSelectedAndNoOther)
    {
        ListAccessFixture f(3);

        f.selectAt(1);

        EXPECT_TRUE(f.row(0).state().selectable);
        EXPECT_TRUE(f.row(0).state().focusable);
        EXPECT_FALSE(f.row(0).state().selected);
        EXPECT_TRUE(f.row(1).state().selected);
    }

    TEST(ClipRowAccessTest, ARowThatIsScrolledAwayIsOffscreenAndInvisible)
    {
        const ListAccessFixture f(50);

        EXPECT_FALSE(f.row(5).state().invisible);
        EXPECT_TRUE(f.row(30).state().offscreen);
        EXPECT_TRUE(f.row(30).state().invisible);
        f.list->setOffset(30 * metrics::rowPitch);
        EXPECT_FALSE(f.row(30).state().offscreen);
        EXPECT_TRUE(f.row(5).state().invisible);
    }

    TEST(ClipRowAccessTest, NoRowOfAHiddenListIsVisible)
    {
        const ListAccessFixture f(3);

        f.list->hide();

        EXPECT_TRUE(f.row(0).state().invisible);
    }

    TEST(ClipRowAccessTest, PressingARowDoesWhatAClickDoes)
    {
        ListAccessFixture f(3);

        f.act(1, QAccessibleActionInterface::pressAction());

        EXPECT_EQ(f.actions.done, (std::vector<Done> { { "choose", "clip 2" } }));
        EXPECT_EQ(f.selected(), "clip 2");
    }

    TEST(ClipRowAccessTest, PastingARowDoesWhatReturnDoes)
    {
        ListAccessFixture f(3);

        f.act(1, "Paste");

        EXPECT_EQ(f.actions.done, (std::vector<Done> { { "activate", "clip 2" } }));
    }

    TEST(ClipRowAccessTest, FocusingARowSelectsItAndPutsNothingOnTheClipboard)
    {
        ListAccessFixture f(3);

        f.act(2, QAccessibleActionInterface::setFocusAction());

        EXPECT_EQ(f.selected(), "clip 3");
        EXPECT_TRUE(f.actions.done.empty());
    }

    TEST(ClipRowAccessTest, ARowsMenuCanBeOpened)
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

    TEST(ClipRowAccessTest, AnActionThatIsNotThereDoesNothing)
    {
        ListAccessFixture f(3);

        f.act(1, "Bake");

        EXPECT_TRUE(f.actions.done.empty());
        EXPECT_EQ(f.selected(), "none");
    }

    TEST(ClipRowAccessTest, EachActionIsExplained)
    {
        const ListAccessFixture f(1);
        auto& actions = *f.row(0).actionInterface();

        EXPECT_EQ(
            actions.actionNames(), (QStringList { "Press", "ShowMenu", "Paste", "SetFocus" }));
        EXPECT_EQ(actions.localizedActionName("Paste"), "Paste Directly");
        for (const auto& name : actions.actionNames())
            EXPECT_FALSE(actions.localizedActionDescription(name).isEmpty()) << name.toStdString();
    }

    TEST(ClipRowAccessTest, AnActionWhosePanelHasBeenClosedMeanwhileDoesNothing)
    {
        for (const auto& name : { QStringLiteral("Press"), QStringLiteral("Paste"),
                 QStringLiteral("ShowMenu"), QStringLiteral("SetFocus") }) {
            ListAccessFixture f(3);
            const auto selected = f.store.panel().selectedClipID.value();
            f.row(1).actionInterface()->doAction(name);

            f.list->hide();
            f.loop.turn();

            EXPECT_TRUE(f.actions.done.empty()) << name.toStdString();
            EXPECT_EQ(f.list->findChild<QMenu*>(), nullptr) << name.toStdString();
            EXPECT_EQ(f.store.panel().selectedClipID.value(), selected) << name.toStdString();
        }
    }

    TEST(ClipRowAccessTest, AnActionWhoseListHasEndedDoesNothing)
    {
        ListAccessFixture f(3);
        f.row(1).actionInterface()->doAction(QAccessibleActionInterface::pressAction());

        f.list.reset();
        f.loop.turn();

        EXPECT_TRUE(f.actions.done.empty());
    }

} // namespace
} // namespace korvane
