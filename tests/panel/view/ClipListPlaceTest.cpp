#include "panel/view/ClipListView.h"

#include "panel/view/ListFixture.h"

#include <gtest/gtest.h>

#include <string>

namespace korvane {
namespace {

    using test::ListFixture;
    using test::listHeight;

    TEST(ClipListPlaceTest, CopiesThatArriveLeaveTheRowsOfAScrolledListWhereTheyAre)
    {
        ListFixture f(50);
        f.list.setOffset(500);
        const auto place = f.list.rowRect(10);

        f.add("a new copy");
        f.add("another one");

        EXPECT_EQ(f.list.rowRect(12), place);
        EXPECT_EQ(f.store.filteredClips()[12]->text, "clip 11");
    }

    TEST(ClipListPlaceTest, AtItsTopTheListShowsACopyThatArrives)
    {
        ListFixture f(50);

        f.add("a new copy");

        EXPECT_EQ(f.list.offset(), 0);
    }

    TEST(ClipListPlaceTest, CopiesThatArriveDoNotPushTheSelectedClipOutOfView)
    {
        ListFixture f(50);
        f.panel().selectedClipID.set(f.idAt(3));
        f.list.setOffset(0);

        for (int copy = 0; copy < 5; ++copy) {
            f.add("copy " + std::to_string(copy));
            const auto place = f.list.rowRect(4 + static_cast<std::size_t>(copy));
            EXPECT_GE(place.top(), 0);
            EXPECT_LE(place.bottom(), listHeight);
        }
    }

    TEST(ClipListPlaceTest, CopiesThatArriveDoNotPushAClipThatIsBeingRenamedOutOfView)
    {
        ListFixture f(50);
        f.panel().selectedClipID.set(f.idAt(0));
        f.list.beginRename(f.idAt(5));

        f.add("a new copy");
        f.add("another one");

        EXPECT_LE(f.list.rowRect(7).bottom(), listHeight);
        f.list.giveUpRename();
    }

    TEST(ClipListPlaceTest, ADeletedRowAtTheTopOfAScrolledListLeavesItWhereItIs)
    {
        ListFixture f(50);
        f.list.setOffset(500);

        f.store.deleteClip(*f.store.filteredClips()[10]);

        EXPECT_EQ(f.list.offset(), 500);
    }

    TEST(ClipListPlaceTest, ASelectedClipThatWasScrolledOutOfViewStaysThere)
    {
        ListFixture f(50);
        f.panel().selectedClipID.set(f.idAt(0));
        f.list.setOffset(500);

        f.add("a new copy");

        EXPECT_EQ(f.list.offset(), 550);
    }

} // namespace
} // namespace korvane
