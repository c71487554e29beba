#include "panel/view/PanelAccess.h"

#include "panel/view/AnnouncerFixture.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    TEST(PanelAccessTest, TheHeadTheFieldsAndTheTotalsHaveTheirNames)
    {
        test::AnnouncerFixture f(3);
        const auto element
            = [](QObject& widget) { return QAccessible::queryAccessibleInterface(&widget); };

        auto* const head = element(f.view->header());
        EXPECT_EQ(head->role(), QAccessible::Grouping);
        EXPECT_EQ(head->text(QAccessible::Name), "Korvane");
        auto* const field = element(f.view->search().field());
        EXPECT_EQ(field->text(QAccessible::Name), "Search");
        EXPECT_EQ(field->role(), QAccessible::EditableText);
        auto* const totals = element(f.view->footer());
        EXPECT_EQ(totals->role(), QAccessible::StaticText);
        EXPECT_EQ(totals->text(QAccessible::Name), "4 clips / 1 KB");
        EXPECT_EQ(totals->text(QAccessible::Description), "Total: 4 / 500 clips · 500 MB limit");
    }

} // namespace
} // namespace korvane
