#include "model/FilterTab.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace korvane {
namespace {

    ClipItem clipOf(ClipType type)
    {
        ClipItem clip;
        clip.type = type;
        return clip;
    }

    std::vector<FilterTab> tabsOf(const ClipItem& clip)
    {
        std::vector<FilterTab> tabs;
        std::ranges::copy_if(allFilterTabs, std::back_inserter(tabs),
            [&clip](FilterTab tab) { return contains(tab, clip); });
        return tabs;
    }

    using Tabs = std::vector<FilterTab>;

    TEST(FilterTabTest, HasNineTabsWithTheirTitlesInOrder)
    {
        std::vector<std::string_view> titles;
        std::ranges::transform(allFilterTabs, std::back_inserter(titles), title);

        EXPECT_EQ(titles,
            (std::vector<std::string_view> {
                "All", "Pinned", "Text", "URL", "Code", "Email", "Files", "Emoji", "Large" }));
    }

    TEST(FilterTabTest, ShowsEachTypeInAllAndInATabOfItsOwn)
    {
        EXPECT_EQ(tabsOf(clipOf(ClipType::plainText)), (Tabs { FilterTab::all, FilterTab::text }));
        EXPECT_EQ(tabsOf(clipOf(ClipType::url)), (Tabs { FilterTab::all, FilterTab::url }));
        EXPECT_EQ(tabsOf(clipOf(ClipType::code)), (Tabs { FilterTab::all, FilterTab::code }));
        EXPECT_EQ(tabsOf(clipOf(ClipType::email)), (Tabs { FilterTab::all, FilterTab::email }));
        EXPECT_EQ(tabsOf(clipOf(ClipType::file)), (Tabs { FilterTab::all, FilterTab::files }));
    }

    TEST(FilterTabTest, KeepsAnAddressOutOfText)
    {
        EXPECT_FALSE(contains(FilterTab::text, clipOf(ClipType::url)));
    }

    TEST(FilterTabTest, ShowsAPinnedAddressWithAnEmojiInFourTabs)
    {
        auto clip = clipOf(ClipType::url);
        clip.isPinned = true;
        clip.hasEmoji = true;

        EXPECT_EQ(tabsOf(clip),
            (Tabs { FilterTab::all, FilterTab::pinned, FilterTab::url, FilterTab::emoji }));
    }

    TEST(FilterTabTest, ShowsAnOverflowClipInLarge)
    {
        auto clip = clipOf(ClipType::plainText);
        clip.isOverflow = true;

        EXPECT_EQ(tabsOf(clip), (Tabs { FilterTab::all, FilterTab::text, FilterTab::large }));
    }

    TEST(FilterTabTest, WalksTheRingInBothDirections)
    {
        EXPECT_EQ(neighbour(FilterTab::all, 1), FilterTab::pinned);
        EXPECT_EQ(neighbour(FilterTab::large, 1), FilterTab::all);
        EXPECT_EQ(neighbour(FilterTab::all, -1), FilterTab::large);
        EXPECT_EQ(neighbour(FilterTab::url, 0), FilterTab::url);
        EXPECT_EQ(neighbour(FilterTab::url, 9 * 5), FilterTab::url);
        EXPECT_EQ(neighbour(FilterTab::url, -9 * 5 - 1), FilterTab::text);
    }

} // namespace
} // namespace korvane
