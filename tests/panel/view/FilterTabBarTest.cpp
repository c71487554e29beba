#include "panel/view/FilterTabBar.h"

#include "look/view/Symbols.h"
#include "panel/view/PanelMetrics.h"
#include "panel/view/ViewFixture.h"
#include "support/Input.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QHelpEvent>
#include <QImage>
#include <QToolTip>

#include <vector>

namespace korvane {
namespace {

    using namespace std::chrono_literals;

    struct TabBarFixture : test::ViewFixture {
        TabBarFixture()
        {
            bar.resize(metrics::panelWidth, metrics::tabsHeight);
            bar.show();
        }
        QColor colourAt(const QPointF& point)
        {
            return bar.grab().toImage().pixelColor(point.toPoint());
        }

        Symbols symbols;
        FilterTabBar bar { store, loop, symbols,
            [this](FilterTab tab) { controller.switchTab(tab); }, nullptr };
    };

    TEST(FilterTabBarTest, EveryTabHasItsSymbol)
    {
        std::vector<std::string> symbols;
        symbols.reserve(allFilterTabs.size());
        for (const auto tab : allFilterTabs)
            symbols.emplace_back(symbolOf(tab));

        EXPECT_EQ(symbols,
            (std::vector<std::string> { "tray.full", "pin.fill", "text.alignleft", "link",
                "chevron.left.forwardslash.chevron.right", "envelope", "folder", "face.smiling",
                "doc.badge.arrow.up.fill" }));
    }

    TEST(FilterTabBarTest, TheChipsStandInTheOrderOfTheRingWithoutOverlapInsideTheBar)
    {
        TabBarFixture f;

        double right = 0;
        for (const auto tab : allFilterTabs) {
            EXPECT_GT(f.bar.chip(tab).left(), right);
            right = f.bar.chip(tab).right();
        }
        EXPECT_LE(right, f.bar.width());
    }

    TEST(FilterTabBarTest, TheChosenTabIsGreenAndWiderByItsName)
    {
        TabBarFixture f;

        const auto chosen = f.bar.chip(FilterTab::all);
        const auto other = f.bar.chip(FilterTab::pinned);

        EXPECT_GT(chosen.width(), other.width() + 10);
        EXPECT_EQ(f.colourAt(chosen.center() + QPointF(0, -11)), QColor(28, 158, 117));
        EXPECT_NE(f.colourAt(other.center() + QPointF(0, -11)), QColor(28, 158, 117));
    }

    TEST(FilterTabBarTest, ClickingATabMovesTheGreenChipAtOnceAndTheListLater)
    {
        TabBarFixture f;

        test::click(f.bar, f.bar.chip(FilterTab::code).center());
        f.loop.advance(220ms);

        EXPECT_GT(f.bar.chip(FilterTab::code).width(), f.bar.chip(FilterTab::all).width());
        EXPECT_EQ(f.panel().panelFilterTab.value(), FilterTab::all);
        f.loop.advance(10ms);
        EXPECT_EQ(f.panel().panelFilterTab.value(), FilterTab::code);
    }

    TEST(FilterTabBarTest, ClickingTheChosenTabSwitchesNothingAndKeepsTheSelection)
    {
        TabBarFixture f;
        f.addNumbered(3);
        f.panel().selectedClipID.set(f.idAt(2));

        test::click(f.bar, f.bar.chip(FilterTab::all).center());

        EXPECT_FALSE(f.panel().isTabSwitching.value());
        EXPECT_EQ(f.panel().tabDisplayed.value(), std::nullopt);
        f.loop.advance(1s);
        EXPECT_EQ(f.panel().selectedClipID.value(), f.idAt(2));
    }

    TEST(FilterTabBarTest, APressThatIsDraggedToAnotherTabSwitchesNothing)
    {
        TabBarFixture f;

        test::press(f.bar, f.bar.chip(FilterTab::code).center());
        test::release(f.bar, f.bar.chip(FilterTab::url).center());

        EXPECT_EQ(f.panel().shownTab(), FilterTab::all);
    }

    TEST(FilterTabBarTest, ThreeQuickTabKeysMoveTheGreenChipThreeTabsOn)
    {
        TabBarFixture f;

        const auto width = [&f](FilterTab tab) { return f.bar.chip(tab).width(); };
        const auto listTab = [&f] { return f.panel().panelFilterTab.value(); };
        const double narrow = width(FilterTab::url);

        for (const auto tab : { FilterTab::pinned, FilterTab::text, FilterTab::url }) {
            f.controller.handle({ keycodes::tab, 0, "" });
            EXPECT_EQ(f.bar.shownTab(), tab);
            EXPECT_EQ(width(tab), narrow); // it moves, and does not jump
            f.loop.advance(20ms);
            const double begun = width(tab);
            EXPECT_GT(begun, narrow);
            f.loop.advance(20ms);
            EXPECT_GT(width(tab), begun);
            EXPECT_EQ(listTab(), FilterTab::all);
        }
        const double underWay = width(FilterTab::url);

        f.loop.advance(180ms); // 220 after the last key
        EXPECT_GT(width(FilterTab::url), underWay);
        for (const auto tab : { FilterTab::all, FilterTab::pinned, FilterTab::text })
            EXPECT_EQ(width(tab), narrow);
        EXPECT_NE(listTab(), FilterTab::url);
        f.loop.advance(10ms);
        EXPECT_EQ(listTab(), FilterTab::url);
    }

    TEST(FilterTabBarTest, HoverPressFocusAndChoiceAreShownDifferently)
    {
        TabBarFixture f;
        f.bar.activateWindow();
        test::settle();
        f.bar.clearFocus();
        const auto lookOf = [&f](FilterTab tab) {
            // With the ring around it, and without its symbol or name.
            const auto place = f.bar.chip(tab).toAlignedRect();
            return f.bar.grab(QRect(place.left() - 3, place.top() - 3, 10, place.height() + 6))
                .toImage();
        };
        const auto middle = [&f](FilterTab tab) { return f.bar.chip(tab).center(); };
        std::vector<QImage> looks { lookOf(FilterTab::code) };

        test::movePointer(f.bar, middle(FilterTab::code));
        looks.push_back(lookOf(FilterTab::code));
        test::press(f.bar, middle(FilterTab::code));
        looks.push_back(lookOf(FilterTab::code));
        test::release(f.bar, { 0, 0 });
        test::movePointer(f.bar, { 0, 0 });
        EXPECT_EQ(lookOf(FilterTab::code), looks.front());
        looks.push_back(lookOf(FilterTab::all));
        f.bar.setFocus(Qt::TabFocusReason);
        ASSERT_TRUE(f.bar.hasFocus());
        looks.push_back(lookOf(FilterTab::all));
        EXPECT_EQ(lookOf(FilterTab::code), looks.front()); // the ring is around the chosen one
        test::movePointer(f.bar, middle(FilterTab::all));
        looks.push_back(lookOf(FilterTab::all));

        for (std::size_t i = 0; i < looks.size(); ++i) {
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_NE(looks[i], looks[j]) << i << " and " << j;
        }
    }

    TEST(FilterTabBarTest, ATabTellsItsTitleInAToolTip)
    {
        TabBarFixture f;
        const auto at = f.bar.chip(FilterTab::email).center().toPoint();

        QHelpEvent rest(QEvent::ToolTip, at, f.bar.mapToGlobal(at));
        QApplication::sendEvent(&f.bar, &rest);

        EXPECT_EQ(QToolTip::text(), QStringLiteral("Email"));
    }

    TEST(FilterTabBarTest, WithTheFocusTheArrowKeysChooseTheNeighbour)
    {
        TabBarFixture f;

        test::typeKey(f.bar, Qt::Key_Left);
        f.loop.advance(1s);

        EXPECT_EQ(f.panel().panelFilterTab.value(), FilterTab::large);
    }

    TEST(FilterTabBarTest, TheGreenChipGoesOverFastAtFirstAndEverSlower)
    {
        TabBarFixture f;
        const auto width = [&f] { return f.bar.chip(FilterTab::code).width(); };
        const double before = width();
        f.controller.switchTab(FilterTab::code);
        EXPECT_EQ(width(), before);

        f.loop.advance(100ms);
        const double halfway = width();
        f.loop.advance(120ms);
        const double after = width();

        EXPECT_GT(halfway, before);
        EXPECT_LT(halfway, after);
        EXPECT_GT(halfway - before, after - halfway);
        EXPECT_NEAR(f.bar.chip(FilterTab::all).width(), before, 0.01);
    }

    TEST(FilterTabBarTest, WhileTheChipsMoveTheyFillTheBarWithoutTouching)
    {
        TabBarFixture f;
        f.controller.switchTab(FilterTab::code);
        for (int frame = 0; frame < 20; ++frame) {
            if (frame == 5)
                f.controller.switchTab(FilterTab::large);
            f.loop.advance(16ms);
            for (std::size_t i = 1; i < allFilterTabs.size(); ++i)
                EXPECT_GT(
                    f.bar.chip(allFilterTabs[i]).left(), f.bar.chip(allFilterTabs[i - 1]).right());
            EXPECT_LE(f.bar.chip(FilterTab::large).right(), f.bar.width());
        }
    }

    TEST(FilterTabBarTest, ABarThatHasComeToRestPaintsNothing)
    {
        TabBarFixture f;
        f.controller.switchTab(FilterTab::code);
        f.loop.advance(1s);
        test::settle();
        const test::PaintCounter paints(f.bar);

        f.loop.advance(10s);
        test::settle();

        EXPECT_EQ(paints.count, 0);
    }

    TEST(FilterTabBarTest, ATabThatWasHeldAsThePanelClosedIsHeldNoLongerAtTheNextOpening)
    {
        TabBarFixture f;
        const auto idle = f.bar.grab().toImage();
        test::press(f.bar, f.bar.chip(FilterTab::code).center());
        EXPECT_NE(f.bar.grab().toImage(), idle);

        f.bar.hide();
        f.bar.show();

        EXPECT_EQ(f.bar.grab().toImage(), idle);
    }

} // namespace
} // namespace korvane
