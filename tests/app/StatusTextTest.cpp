#include "app/StatusText.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    TEST(StatusTextTest, TheTitleIsABlankAndTheCount)
    {
        EXPECT_EQ(statustext::title(true, 42), " 42");
        EXPECT_EQ(statustext::title(true, 0), " 0");
    }

    TEST(StatusTextTest, WithoutTheCountTheTitleIsEmpty)
    {
        EXPECT_EQ(statustext::title(false, 42), "");
    }

    TEST(StatusTextTest, TheMenuHasItsSevenItemsInOrder)
    {
        const auto menu = statustext::menu(false, {});

        ASSERT_EQ(menu.size(), 7U);
        EXPECT_EQ(menu[0].title, "   Private Mode");
        EXPECT_EQ(menu[1].title, "");
        EXPECT_EQ(menu[2].title, "Preferences...");
        EXPECT_EQ(menu[2].keyEquivalent, ",");
        EXPECT_EQ(menu[3].title, "Check for Updates...");
        EXPECT_EQ(menu[3].keyEquivalent, "");
        EXPECT_EQ(menu[4].title, "More from the Makers of Korvane");
        EXPECT_EQ(menu[5].title, "");
        EXPECT_EQ(menu[6].title, "Quit Korvane");
        EXPECT_EQ(menu[6].keyEquivalent, "q");
    }

    TEST(StatusTextTest, PrivateModeIsCheckedInTheMenu)
    {
        EXPECT_EQ(statustext::menu(true, {})[0].title, "✓ Private Mode");
    }

    TEST(StatusTextTest, EachItemDoesItsOwnAction)
    {
        std::string done;
        const auto menu = statustext::menu(false,
            { [&] { done += "private "; }, [&] { done += "preferences "; },
                [&] { done += "updates "; }, [&] { done += "makers "; }, [&] { done += "quit"; } });

        for (const auto& item : menu)
            if (item.action)
                item.action();

        EXPECT_EQ(done, "private preferences updates makers quit");
    }

} // namespace
} // namespace korvane
