#include "panel/view/ClipListAccess.h"

#include "panel/view/ListAccessFixture.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using test::ListAccessFixture;
    using Names = std::vector<std::string>;

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

    TEST(ClipListAccessTest, BetweenTheRowsAndOutsideTheListThereIsNone)
    {
        const ListAccessFixture f(10);
        const auto place = f.row(0).rect();

        EXPECT_EQ(f.element->childAt(place.center().x(), place.bottom() + 2), nullptr);
        EXPECT_EQ(f.element->childAt(place.center().x(), place.top() - 200), nullptr);
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
