#include "panel/view/ClipListView.h"

#include "panel/view/ListFixture.h"
#include "panel/view/PanelMetrics.h"
#include "support/Input.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QHelpEvent>
#include <QImage>
#include <QToolTip>

#include <algorithm>
#include <string>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using Done = test::FakeClipActions::Done;

    using test::ListFixture;
    using test::listHeight;

    TEST(ClipListViewTest, AClickChoosesTheClipUnderThePointer)
    {
        ListFixture f(5);

        test::click(f.list, f.middleOf(2));

        EXPECT_EQ(f.actions.done, (std::vector<Done> { { "choose", "clip 3" } }));
        EXPECT_EQ(f.panel().selectedClipID.value(), f.idAt(2));
    }

    TEST(ClipListViewTest, APressThatEndsOnAnotherRowChoosesNothing)
    {
        ListFixture f(5);

        test::press(f.list, f.middleOf(2));
        test::release(f.list, f.middleOf(3));

        EXPECT_TRUE(f.actions.done.empty());
    }

    TEST(ClipListViewTest, ACopyThatMovesTheRowsUnderAPressChoosesNoOtherClip)
    {
        ListFixture f(5);

        test::press(f.list, f.middleOf(2));
        f.add("a new copy");
        test::release(f.list, f.middleOf(2));

        EXPECT_TRUE(f.actions.done.empty());
    }

    TEST(ClipListViewTest, AClickAfterScrollingMeetsWhatIsSeen)
    {
        ListFixture f(50);
        f.list.setOffset(500);

        test::click(f.list, { 100, 30 });

        EXPECT_EQ(f.actions.done, (std::vector<Done> { { "choose", "clip 11" } }));
    }

    TEST(ClipListViewTest, ItScrollsNoFurtherThanToItsEnds)
    {
        ListFixture f(50);

        f.list.setOffset(-10);
        EXPECT_EQ(f.list.offset(), 0);
        f.list.setOffset(1e9);
        EXPECT_EQ(f.list.offset(), f.list.contentHeight() - listHeight);
    }

    TEST(ClipListViewTest, AListThatFitsDoesNotScroll)
    {
        ListFixture f(3);

        test::turnWheel(f.list, 3);

        EXPECT_EQ(f.list.offset(), 0);
    }

    TEST(ClipListViewTest, ANotchOfTheWheelScrollsTwoRowsAndAFractionLess)
    {
        ListFixture f(50);

        test::turnWheel(f.list, 1);
        EXPECT_EQ(f.list.offset(), 100);
        test::turnWheel(f.list, -0.25);
        EXPECT_EQ(f.list.offset(), 75);
    }

    TEST(ClipListViewTest, ATouchpadScrollsByAsManyPointsAsItTells)
    {
        ListFixture f(50);

        test::scrollPixels(f.list, 37);
        EXPECT_EQ(f.list.offset(), 37);
        test::scrollPixels(f.list, -7);
        EXPECT_EQ(f.list.offset(), 30);
    }

    TEST(ClipListViewTest, TheSameFromAWheelIsANotch)
    {
        ListFixture f(50);

        test::scrollPixels(f.list, 37, Qt::NoScrollPhase);

        EXPECT_EQ(f.list.offset(), 100);
    }

    TEST(ClipListViewTest, TheSelectedClipIsBroughtToTheMiddle)
    {
        ListFixture f(50);

        f.panel().selectedClipID.set(f.idAt(20));

        EXPECT_EQ(f.middleOf(20).y(), listHeight / 2.0);
    }

    TEST(ClipListViewTest, NearTheEndsTheSelectedClipIsAsNearToTheMiddleAsCanBe)
    {
        ListFixture f(50);

        f.panel().selectedClipID.set(f.idAt(49));
        EXPECT_EQ(f.list.offset(), f.list.contentHeight() - listHeight);
        f.panel().selectedClipID.set(f.idAt(0));
        EXPECT_EQ(f.list.offset(), 0);
    }

    TEST(ClipListViewTest, ASelectionThatIsGivenUpDoesNotScroll)
    {
        ListFixture f(50);
        f.panel().selectedClipID.set(f.idAt(20));
        const auto before = f.list.offset();

        f.panel().selectedClipID.set(std::nullopt);

        EXPECT_EQ(f.list.offset(), before);
    }

    TEST(ClipListViewTest, AnOpeningReturnsTheListToItsTop)
    {
        ListFixture f(50);
        f.list.setOffset(700);
        f.list.hide();

        f.controller.prepareToOpen("clip 5");
        f.list.show();

        EXPECT_EQ(f.selected(), "clip 5"); // of the six that are in view there
        EXPECT_EQ(f.list.offset(), 0);
    }

    TEST(ClipListViewTest, AnOpeningBringsASelectedClipThatIsFurtherDownToTheMiddle)
    {
        ListFixture f(50);
        f.list.hide();

        f.controller.prepareToOpen("clip 30");
        f.list.resize(metrics::panelWidth, 200); // the panel is made to fit the screen only now
        f.list.show();

        EXPECT_EQ(f.panel().selectedClipID.value(), f.idAt(29));
        EXPECT_EQ(f.middleOf(29).y(), 100);
    }

    TEST(ClipListViewTest, AnOpeningWithoutASelectionReturnsTheListToItsTop)
    {
        ListFixture f(50);
        f.list.setOffset(700);
        f.list.hide();

        f.list.show();

        EXPECT_EQ(f.list.offset(), 0);
    }

    TEST(ClipListViewTest, ASearchShowsItsFirstHitsAtTheTop)
    {
        ListFixture f(50);
        f.list.setOffset(700);

        f.panel().panelSearch.set("clip 1");

        EXPECT_EQ(f.list.offset(), 0);
        EXPECT_EQ(f.list.contentHeight(), 11 * 50 - 2 + 8);
    }

    TEST(ClipListViewTest, ASearchThatKeepsTheSelectedClipKeepsItInView)
    {
        ListFixture f(50);
        f.panel().selectedClipID.set(f.idAt(39));

        f.panel().panelSearch.set("clip");

        EXPECT_EQ(f.middleOf(39).y(), listHeight / 2.0);
    }

    TEST(ClipListViewTest, TheMiddleOfTheSelectedRowIsToldFromThePanelsTop)
    {
        ListFixture f(50);

        f.panel().selectedClipID.set(f.idAt(1));
        EXPECT_EQ(f.panel().selectedRowMidY, 121 + 4 + 50 + 24);
        f.list.setOffset(30);
        EXPECT_EQ(f.panel().selectedRowMidY, 121 + 4 + 50 + 24 - 30);
    }

    TEST(ClipListViewTest, ANewCopyMovesTheSelectedRowAndItsMiddleIsToldAnew)
    {
        ListFixture f(3);
        f.panel().selectedClipID.set(f.idAt(0));

        f.add("a new copy");

        EXPECT_EQ(f.panel().selectedRowMidY, 121 + 4 + 50 + 24);
    }

    TEST(ClipListViewTest, ThePointerSelectsNothingByResting)
    {
        ListFixture f(5);
        f.panel().selectedClipID.set(f.idAt(0));

        test::movePointer(f.list, f.middleOf(3));

        EXPECT_EQ(f.panel().selectedClipID.value(), f.idAt(0));
    }

    TEST(ClipListViewTest, SelectionHoverAndPressAreShownDifferently)
    {
        ListFixture f(5);
        f.panel().selectedClipID.set(f.idAt(0));
        const auto groundOf = [&f](std::size_t index) {
            const auto row = f.list.rowRect(index);
            return f.list.grab().toImage().pixelColor(
                static_cast<int>(row.center().x()), static_cast<int>(row.bottom()) - 4);
        };

        test::movePointer(f.list, f.middleOf(1));
        const auto hovered = groundOf(1);
        test::press(f.list, f.middleOf(1));
        const auto pressed = groundOf(1);

        EXPECT_NE(groundOf(0), groundOf(2));
        EXPECT_NE(hovered, groundOf(2));
        EXPECT_NE(hovered, groundOf(0));
        EXPECT_NE(pressed, hovered);
    }

    TEST(ClipListViewTest, AnIdleListDoesNotRepaint)
    {
        ListFixture f(50);
        test::PaintCounter paints(f.list);

        f.loop.advance(59s);
        test::settle();

        EXPECT_EQ(paints.count, 0);
    }

    TEST(ClipListViewTest, AMinuteInWhichNoAgeChangesRepaintsNothing)
    {
        ListFixture f(50);
        f.list.hide();
        f.loop.advance(49h);
        f.list.show();
        test::settle();
        test::PaintCounter paints(f.list);

        f.loop.advance(1min);
        test::settle();

        EXPECT_EQ(paints.count, 0);
    }

    TEST(ClipListViewTest, AgesAreBroughtUpToDateEveryMinuteWhileTheListIsShown)
    {
        ListFixture f(50);
        test::PaintCounter paints(f.list);

        f.loop.advance(1min);
        test::settle();
        EXPECT_EQ(paints.count, 1);
        f.list.hide();

        EXPECT_EQ(f.loop.pendingTimers(), 0U);
    }

    TEST(ClipListViewTest, AMovedSelectionRepaintsTwoRowsAndNoMore)
    {
        ListFixture f(5);
        f.panel().selectedClipID.set(f.idAt(0));
        test::settle();
        test::PaintCounter paints(f.list);

        f.panel().selectedClipID.set(f.idAt(1));
        test::settle();

        EXPECT_EQ(paints.count, 1);
        EXPECT_LE(paints.area.height(), 100);
    }

    TEST(ClipListViewTest, AHiddenListFollowsACopyOnlyWhenItIsShown)
    {
        ListFixture f(50);
        f.panel().selectedClipID.set(f.idAt(0));
        const double before = f.panel().selectedRowMidY;
        f.list.hide();

        f.add("a copy while the panel is closed");
        test::settle();
        EXPECT_EQ(f.panel().selectedRowMidY, before);
        f.list.show();

        EXPECT_EQ(f.panel().selectedRowMidY, before + metrics::rowPitch);
    }

    TEST(ClipListViewTest, ADeletedClipLeavesTheList)
    {
        ListFixture f(3);

        f.controller.remove(f.idAt(1));
        test::click(f.list, f.middleOf(1));

        EXPECT_EQ(f.actions.done, (std::vector<Done> { { "choose", "clip 3" } }));
    }

    TEST(ClipListViewTest, TheMarkOfALargeClipTellsWhatItMeans)
    {
        ListFixture f;
        f.addLarge('x');
        test::settle();
        const auto row = f.list.rowRect(0);
        const auto textAt = [&](int fromRight) {
            const QPoint at(
                static_cast<int>(row.right()) - fromRight, static_cast<int>(row.center().y()));
            QHelpEvent rest(QEvent::ToolTip, at, f.list.mapToGlobal(at));
            QApplication::sendEvent(&f.list, &rest);
            return QToolTip::text();
        };

        // The mark stands left of the badge.
        bool isTold = false;
        for (int fromRight = 9; fromRight < 60; ++fromRight)
            isTold = isTold || textAt(fromRight) == QStringLiteral("Large clip — stored on disk");
        EXPECT_TRUE(isTold);
    }

    /// How many pixels are not the panel's own ground, and whether any of them touches an edge.
    int inkOf(ClipListView& list)
    {
        QImage image(list.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        list.render(&image, {}, {}, QWidget::DrawChildren);
        int ink = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == Qt::white)
                    continue;
                ++ink;
                EXPECT_TRUE(y > 2 && y < image.height() - 3 && x > 10 && x < image.width() - 11);
            }
        }
        return ink;
    }

    TEST(ClipListViewTest, AListWithoutRowsSaysSomethingAlsoWhereThereIsLittleRoom)
    {
        ListFixture f;
        for (const int height : { 86, 306, 800 }) {
            f.list.resize(metrics::panelWidth, height);
            EXPECT_GT(inkOf(f.list), 300) << height;
        }
        const auto nothingYet = inkOf(f.list);
        f.panel().panelSearch.set(std::string(500, 'W'));
        EXPECT_NE(inkOf(f.list), nothingYet);
    }

    TEST(ClipListViewTest, AClipFoundLateAtAnOpeningIsBroughtToTheMiddle)
    {
        ListFixture f(50);

        f.controller.selectText("clip 40");

        EXPECT_EQ(f.selected(), "clip 40");
        EXPECT_EQ(f.middleOf(39).y(), listHeight / 2.0);
    }

    TEST(ClipListViewTest, WhileTheTabIsSwitchedTheListFadesAwayAndBack)
    {
        ListFixture f(3);
        // How much darker than the ground the darkest pixel of a title is.
        const auto ink = [&f] {
            const auto image = f.list.grab().toImage().convertToFormat(QImage::Format_Grayscale8);
            const auto row = f.list.rowRect(1).toAlignedRect();
            int lightest = 0;
            int darkest = 255;
            for (int y = row.top(); y < row.center().y(); ++y) {
                for (int x = row.left() + 50; x < row.left() + 110; ++x) {
                    lightest = std::max(lightest, qGray(image.pixel(x, y)));
                    darkest = std::min(darkest, qGray(image.pixel(x, y)));
                }
            }
            return lightest - darkest;
        };
        const int whole = ink();
        EXPECT_GT(whole, 100);

        f.controller.switchTab(FilterTab::text);
        EXPECT_EQ(ink(), whole);
        f.loop.advance(100ms);
        EXPECT_LT(ink(), whole);
        f.loop.advance(120ms);
        EXPECT_EQ(ink(), 0);

        f.loop.advance(80ms); // the list has changed, and comes back
        EXPECT_GT(ink(), 0);
        f.loop.advance(120ms);
        EXPECT_EQ(ink(), whole);
    }

} // namespace
} // namespace korvane
