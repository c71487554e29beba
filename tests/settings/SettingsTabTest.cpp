#include "settings/SettingsTab.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

namespace korvane {
namespace {

    TEST(SettingsTabTest, TheTabsStandInTheirOrderWithTheirTitlesAndSymbols)
    {
        const std::vector<std::vector<std::string_view>> expected {
            { "general", "General", "gear" },
            { "shortcuts", "Shortcuts", "keyboard" },
            { "privacy", "Privacy", "lock.shield" },
            { "data", "Data", "externaldrive" },
            { "help", "Help", "questionmark.circle" },
            { "about", "About", "info.circle" },
        };

        std::vector<std::vector<std::string_view>> tabs;
        tabs.reserve(allSettingsTabs.size());
        for (const auto tab : allSettingsTabs)
            tabs.push_back({ identifierOf(tab), titleOf(tab), symbolOf(tab) });

        EXPECT_EQ(tabs, expected);
    }

    TEST(SettingsTabTest, ATabIsFoundByItsIdentifier)
    {
        for (const auto tab : allSettingsTabs)
            EXPECT_EQ(settingsTabNamed(identifierOf(tab)), tab);
        EXPECT_EQ(settingsTabNamed("General"), std::nullopt);
        EXPECT_EQ(settingsTabNamed(""), std::nullopt);
    }

    TEST(SettingsTabSelectionTest, AtFirstTheGeneralTabIsSelected)
    {
        const SettingsTabSelection tabs;

        EXPECT_EQ(tabs.selection.value(), SettingsTab::general);
    }

    TEST(SettingsTabSelectionTest, AnIdentifierSelectsItsTab)
    {
        SettingsTabSelection tabs;

        tabs.select("privacy");

        EXPECT_EQ(tabs.selection.value(), SettingsTab::privacy);
    }

    TEST(SettingsTabSelectionTest, AnUnknownIdentifierLeavesTheSelectedTabUnchanged)
    {
        SettingsTabSelection tabs;
        tabs.select("data");
        int changes = 0;
        const auto connection = tabs.selection.onChange([&changes](SettingsTab) { ++changes; });

        tabs.select("nobody");

        EXPECT_EQ(tabs.selection.value(), SettingsTab::data);
        EXPECT_EQ(changes, 0);
    }

} // namespace
} // namespace korvane
