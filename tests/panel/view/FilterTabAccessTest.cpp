#include "panel/view/FilterTabAccess.h"

#include "look/view/Symbols.h"
#include "panel/view/FilterTabBar.h"
#include "panel/view/PanelAccess.h"
#include "panel/view/PanelMetrics.h"
#include "panel/view/ViewFixture.h"
#include "support/AccessEvents.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <memory>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using Names = std::vector<std::string>;

    struct TabAccessFixture : test::ViewFixture {
        TabAccessFixture()
        {
            installPanelAccess();
            bar = std::make_unique<FilterTabBar>(
                store, loop, symbols, [this](FilterTab tab) { controller.switchTab(tab); },
                nullptr);
            bar->resize(metrics::panelWidth, metrics::tabsHeight);
            bar->show();
            element = QAccessible::queryAccessibleInterface(bar.get());
        }
        QAccessibleInterface& tab(FilterTab tab) const
        {
            return *element->child(static_cast<int>(tab));
        }
        /// The names of the tabs that are selected.
        Names selected() const
        {
            Names names;
            for (const auto each : allFilterTabs)
                if (tab(each).state().selected)
                    names.push_back(tab(each).text(QAccessible::Name).toStdString());
            return names;
        }

        test::AccessEvents events;
        Symbols symbols;
        std::unique_ptr<FilterTabBar> bar;
        QAccessibleInterface* element = nullptr;
    };

    TEST(FilterTabAccessTest, TheBarIsAListOfTabsByTheirTitles)
    {
        const TabAccessFixture f;

        EXPECT_EQ(f.element->role(), QAccessible::PageTabList);
        EXPECT_EQ(f.element->text(QAccessible::Name), "Filter");
        EXPECT_EQ(test::childNames(*f.element),
            (Names { "All", "Pinned", "Text", "URL", "Code", "Email", "Files", "Emoji", "Large" }));
        EXPECT_EQ(f.tab(FilterTab::code).role(), QAccessible::PageTab);
        EXPECT_EQ(f.tab(FilterTab::code).parent(), f.element);
        EXPECT_EQ(f.element->indexOfChild(&f.tab(FilterTab::code)), 4);
        EXPECT_EQ(f.element->child(9), nullptr);
    }

    TEST(FilterTabAccessTest, TheTabThatTheBarShowsAsChosenIsSelected)
    {
        TabAccessFixture f;

        EXPECT_EQ(f.selected(), (Names { "All" }));
        f.controller.switchTab(FilterTab::email);
        EXPECT_EQ(f.selected(), (Names { "Email" }));
        f.loop.advance(1s);
        EXPECT_EQ(f.selected(), (Names { "Email" }));
    }

    TEST(FilterTabAccessTest, PressingATabDoesWhatAClickDoes)
    {
        TabAccessFixture f;

        f.tab(FilterTab::code)
            .actionInterface()
            ->doAction(QAccessibleActionInterface::pressAction());
        f.loop.advance(1s);

        EXPECT_EQ(f.panel().panelFilterTab.value(), FilterTab::code);
    }

    TEST(FilterTabAccessTest, ATabStandsOnTheScreenWhereItsChipIs)
    {
        const TabAccessFixture f;

        const auto place = f.tab(FilterTab::url).rect();

        EXPECT_EQ(place.topLeft(),
            f.bar->mapToGlobal(f.bar->chip(FilterTab::url).toAlignedRect().topLeft()));
        EXPECT_EQ(
            f.element->childAt(place.center().x(), place.center().y()), &f.tab(FilterTab::url));
        EXPECT_EQ(f.element->childAt(place.center().x(), place.top() - 100), nullptr);
    }

    TEST(FilterTabAccessTest, TheTabsOfABarThatHasEndedAreGone)
    {
        TabAccessFixture f;
        const auto number = QAccessible::uniqueId(&f.tab(FilterTab::url));

        f.bar.reset();

        EXPECT_EQ(QAccessible::accessibleInterface(number), nullptr);
    }

} // namespace
} // namespace korvane
