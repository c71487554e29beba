#include "panel/view/ListChevrons.h"

#include "panel/view/ClipPanelView.h"
#include "panel/view/PanelMetrics.h"
#include "panel/view/ViewFixture.h"
#include "support/Input.h"

#include <gtest/gtest.h>

#include <QCursor>

namespace korvane {
namespace {

    using namespace std::chrono_literals;

    struct ChevronsFixture : test::ViewFixture {
        explicit ChevronsFixture(int clips = 50)
        {
            addNumbered(clips);
            view.resize(metrics::panelWidth, 470); // six rows
            view.show();
            test::settle();
        }
        ClipListView& list() { return view.list(); }
        Chevron& up() { return view.chevrons().up(); }
        Chevron& down() { return view.chevrons().down(); }
        static void enter(Chevron& chevron) { test::movePointer(chevron, { 14, 10 }); }
        static void leave(Chevron& chevron)
        {
            QEvent left(QEvent::Leave);
            QApplication::sendEvent(&chevron, &left);
        }
        void click(Chevron& chevron) { test::click(chevron, { 14, 10 }); }
        double most() { return list().contentHeight() - list().height(); }

        ClipPanelView view { store, controller, loop, {} };
    };

    TEST(ListChevronsTest, AListThatFitsShowsNone)
    {
        ChevronsFixture f(3);

        EXPECT_FALSE(f.up().isVisible());
        EXPECT_FALSE(f.down().isVisible());
    }

    TEST(ListChevronsTest, AtTheTopOnlyTheOneDownIsShownAndAtTheEndOnlyTheOneUp)
    {
        ChevronsFixture f;
        EXPECT_FALSE(f.up().isVisible());
        EXPECT_TRUE(f.down().isVisible());

        f.list().setOffset(f.most());

        EXPECT_TRUE(f.up().isVisible());
        EXPECT_FALSE(f.down().isVisible());
    }

    TEST(ListChevronsTest, ThreePointsFromTheTopThereIsNoneUpAndAtThreeAndAHalfThereIs)
    {
        ChevronsFixture f;

        f.list().setOffset(3);
        EXPECT_FALSE(f.up().isVisible());
        f.list().setOffset(3.5);
        EXPECT_TRUE(f.up().isVisible());
    }

    TEST(ListChevronsTest, TheyLieInTheMiddleSixPointsFromTheListsEdges)
    {
        ChevronsFixture f;
        f.list().setOffset(100);

        EXPECT_EQ(f.up().geometry(), QRect(166, 121 + 6, 28, 20));
        EXPECT_EQ(f.down().geometry(), QRect(166, 470 - 43 - 6 - 20, 28, 20));
    }

    TEST(ListChevronsTest, TheyFollowAListThatGrowsAndShrinks)
    {
        ChevronsFixture f(6);
        EXPECT_FALSE(f.down().isVisible());

        f.add("one more");
        EXPECT_TRUE(f.down().isVisible());
        f.panel().panelSearch.set("one more");

        EXPECT_FALSE(f.down().isVisible());
    }

    TEST(ListChevronsTest, ThePointerOnTheOneDownScrollsOnAndOn)
    {
        ChevronsFixture f;

        ChevronsFixture::enter(f.down());
        EXPECT_EQ(f.list().offset(), 4);
        f.loop.advance(1s);
        EXPECT_EQ(f.list().offset(), 4 + 60 * 4);
        ChevronsFixture::leave(f.down());
        f.loop.advance(1s);

        EXPECT_EQ(f.list().offset(), 4 + 60 * 4);
    }

    TEST(ListChevronsTest, ItStopsAtTheEndWhereTheChevronDisappears)
    {
        ChevronsFixture f;
        f.list().setOffset(f.most() - 20);

        ChevronsFixture::enter(f.down());
        f.loop.advance(1s);

        EXPECT_FALSE(f.down().isVisible());
        EXPECT_GE(f.list().offset(), f.most() - 3);
        EXPECT_LE(f.list().offset(), f.most());
    }

    TEST(ListChevronsTest, ItStopsWhenThePanelHidesAndDoesNotGoOnAtTheNextOpening)
    {
        ChevronsFixture f;
        ChevronsFixture::enter(f.down());
        f.loop.advance(100ms);

        f.view.hide();
        const double before = f.list().offset();
        f.loop.advance(1s);
        EXPECT_EQ(f.list().offset(), before);
        EXPECT_EQ(f.loop.pendingTimers(), 0U);
        f.view.show();
        const double atTheOpening = f.list().offset();
        f.loop.advance(1s);

        EXPECT_EQ(f.list().offset(), atTheOpening);
    }

    TEST(ListChevronsTest, ItStopsWhenThePreferenceBecomesClick)
    {
        ChevronsFixture f;
        ChevronsFixture::enter(f.down());
        f.loop.advance(100ms);
        const double before = f.list().offset();

        f.preferences.set(keys::chevronActivation, std::string("click"));
        f.loop.advance(1s);

        EXPECT_EQ(f.list().offset(), before);
    }

    TEST(ListChevronsTest, APointerThatRestsWhereAChevronAppearsScrollsNothingUntilItMoves)
    {
        ChevronsFixture f;
        f.view.hide();
        const auto middle = f.down().geometry().center();
        QCursor::setPos(f.view.mapToGlobal(middle));

        f.view.show();
        // As the toolkit tells when a widget appears under the pointer.
        test::movePointer(f.down(), f.down().mapFromGlobal(QCursor::pos()));
        f.loop.advance(1s);
        EXPECT_EQ(f.list().offset(), 0);
        test::movePointer(f.down(), f.down().mapFromGlobal(QCursor::pos() + QPoint(3, 0)));

        EXPECT_EQ(f.list().offset(), 4);
    }

    TEST(ListChevronsTest, AClickScrollsFourRowsAndChoosesNone)
    {
        ChevronsFixture f;
        f.preferences.set(keys::chevronActivation, std::string("click"));

        f.click(f.down());
        f.loop.advance(200ms);
        EXPECT_EQ(f.list().offset(), 200);
        f.click(f.up());
        f.loop.advance(200ms);

        EXPECT_EQ(f.list().offset(), 0);
        EXPECT_TRUE(f.actions.done.empty());
    }

    TEST(ListChevronsTest, AClickNearTheEndScrollsToTheEnd)
    {
        ChevronsFixture f;
        f.preferences.set(keys::chevronActivation, std::string("click"));
        f.list().setOffset(f.most() - 30);

        f.click(f.down());
        f.loop.advance(200ms);

        EXPECT_EQ(f.list().offset(), f.most());
    }

    TEST(ListChevronsTest, AKeyThatMovesTheSelectionEndsTheScrollOfAClick)
    {
        ChevronsFixture f;
        f.preferences.set(keys::chevronActivation, std::string("click"));
        f.panel().selectedClipID.set(f.idAt(30));
        f.click(f.up());
        f.loop.advance(48ms);

        f.press(keycodes::downArrow);
        const double moved = f.list().offset();
        f.loop.advance(1s);

        EXPECT_EQ(f.list().offset(), moved);
    }

    TEST(ListChevronsTest, AClickTooManyAtTheEndChoosesNoClip)
    {
        ChevronsFixture f;
        const auto pointer = f.down().mapToGlobal(QPoint(14, 10));
        const auto place = f.list().mapFromGlobal(QPointF(pointer));
        const auto before = QCursor::pos();
        QCursor::setPos(pointer);
        f.list().setOffset(f.most() - 100);
        f.click(f.down());
        f.loop.advance(200ms);
        QCursor::setPos(before); // for the tests to come; the list has been told
        ASSERT_FALSE(f.down().isVisible());

        for (int clicks = 0; clicks < 3; ++clicks) {
            test::click(f.list(), place);
            f.loop.advance(300ms);
        }
        EXPECT_TRUE(f.actions.done.empty());
        f.loop.advance(1s);
        test::click(f.list(), place);
        EXPECT_EQ(f.actions.done.size(), 1U);
    }

    TEST(ListChevronsTest, TheWheelOverAChevronScrollsTheList)
    {
        ChevronsFixture f;

        test::turnWheel(f.down(), 1);

        EXPECT_EQ(f.list().offset(), 100);
    }

    TEST(ListChevronsTest, ARightClickOnAChevronOpensNoMenu)
    {
        ChevronsFixture f;

        test::rightClick(f.down(), { 14, 10 });

        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    }

    TEST(ListChevronsTest, ScrollingRepaintsTheListAndNothingAroundIt)
    {
        ChevronsFixture f;
        f.list().setOffset(100);
        test::settle();
        test::PaintCounter header(f.view.header());
        test::PaintCounter search(f.view.search());
        test::PaintCounter tabs(f.view.tabs());
        test::PaintCounter footer(f.view.footer());
        test::PaintCounter list(f.list());

        ChevronsFixture::enter(f.down());
        f.loop.advance(100ms);
        test::settle();

        EXPECT_GT(list.count, 0);
        EXPECT_EQ(header.count + search.count + tabs.count + footer.count, 0);
    }

    TEST(ListChevronsTest, RestingCostsNothingOnceTheListHasEnded)
    {
        ChevronsFixture f;
        f.list().setOffset(f.most() - 20);
        ChevronsFixture::enter(f.down());
        f.loop.advance(1s);
        test::settle();
        test::PaintCounter paints(f.view);

        f.loop.advance(30s);
        test::settle();

        EXPECT_EQ(paints.count, 0);
    }

    TEST(ListChevronsTest, HoverAndPressAreShownDifferently)
    {
        ChevronsFixture f;
        f.preferences.set(keys::chevronActivation, std::string("click"));
        const auto plain = f.down().grab().toImage();

        ChevronsFixture::enter(f.down());
        const auto hovered = f.down().grab().toImage();
        f.down().setDown(true);
        const auto pressed = f.down().grab().toImage();

        EXPECT_NE(plain, hovered);
        EXPECT_NE(hovered, pressed);
        EXPECT_NE(plain, pressed);
    }

    TEST(ListChevronsTest, TheyHaveNamesForAssistiveTechnologyAndTakeNoFocus)
    {
        ChevronsFixture f;

        EXPECT_EQ(f.up().accessibleName(), QStringLiteral("Scroll Up"));
        EXPECT_EQ(f.down().accessibleName(), QStringLiteral("Scroll Down"));
        f.click(f.down());
        EXPECT_EQ(f.view.focusWidget(), &f.view.search().field());
    }

} // namespace
} // namespace korvane
