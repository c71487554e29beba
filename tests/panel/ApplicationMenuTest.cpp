#include "panel/ApplicationMenu.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace korvane {
namespace {

    TEST(ApplicationMenuTest, ItsLinesStandInTheirOrderWithADividerBetweenEachPair)
    {
        std::vector<std::string> titles;
        for (const auto& item : applicationmenu::items())
            titles.emplace_back(item.action ? item.title : "-");

        EXPECT_EQ(titles,
            (std::vector<std::string> { "Preferences...", "-", "Check for Updates...", "-",
                "More from the Makers of Korvane", "-", "Quit Korvane" }));
    }

    TEST(ApplicationMenuTest, EachLineHasAnActionOfItsOwn)
    {
        using enum applicationmenu::Action;
        std::vector<applicationmenu::Action> actions;
        for (const auto& item : applicationmenu::items()) {
            if (item.action)
                actions.push_back(*item.action);
        }

        EXPECT_EQ(
            actions, (std::vector { openPreferences, checkForUpdates, openMakersPage, quit }));
    }

} // namespace
} // namespace korvane
