#include "panel/EmptyList.h"

#include <gtest/gtest.h>

#include <set>

namespace korvane {
namespace {

    TEST(EmptyListTest, AnEmptyHistorySaysHowToFillItInEveryTab)
    {
        for (const auto tab : allFilterTabs) {
            const auto said = emptyList(true, false, tab, "");
            EXPECT_EQ(said.title, "No clips yet");
            EXPECT_EQ(said.hint, "Copy something, and it appears here.");
            EXPECT_EQ(said.symbol, std::nullopt);
        }
    }

    TEST(EmptyListTest, AnEmptyTabTellsWhatWouldBeInIt)
    {
        std::set<std::string> titles;
        for (const auto tab : allFilterTabs) {
            const auto said = emptyList(false, false, tab, "");
            titles.insert(said.title);
            EXPECT_FALSE(said.hint.empty());
        }
        EXPECT_EQ(titles.size(), allFilterTabs.size());
        EXPECT_EQ(emptyList(false, false, FilterTab::pinned, "").title, "No pinned clips");
    }

    TEST(EmptyListTest, ASearchWithoutAHitRepeatsWhatWasSearchedAndTellsTheWayOut)
    {
        const auto said = emptyList(false, false, FilterTab::url, "a\nb");

        EXPECT_EQ(said.title, "Nothing found for “a b”");
        EXPECT_EQ(said.hint, "Searched in “URL” only. Escape clears the search.");
        EXPECT_EQ(emptyList(false, false, FilterTab::all, "a").hint, "Escape clears the search.");
        EXPECT_EQ(said.symbol, "magnifyingglass");
    }

    TEST(EmptyListTest, AnEmptyHistoryInPrivateModeSaysWhyItStaysEmpty)
    {
        EXPECT_EQ(emptyList(true, true, FilterTab::all, "").title, "Private mode is on");
        EXPECT_EQ(emptyList(true, true, FilterTab::all, "").symbol, "lock");
        EXPECT_EQ(emptyList(false, true, FilterTab::code, "").title, "No code");
        EXPECT_EQ(emptyList(true, true, FilterTab::all, "x").symbol, "magnifyingglass");
    }

} // namespace
} // namespace korvane
