#include "settings/SettingsTab.h"

#include <algorithm>

namespace korvane {

namespace {

    struct TabFacts {
        SettingsTab tab;
        std::string_view identifier;
        std::string_view title;
        std::string_view symbol;
    };

    constexpr std::array facts {
        TabFacts { SettingsTab::general, "general", "General", "gear" },
        TabFacts { SettingsTab::shortcuts, "shortcuts", "Shortcuts", "keyboard" },
        TabFacts { SettingsTab::privacy, "privacy", "Privacy", "lock.shield" },
        TabFacts { SettingsTab::data, "data", "Data", "externaldrive" },
        TabFacts { SettingsTab::help, "help", "Help", "questionmark.circle" },
        TabFacts { SettingsTab::about, "about", "About", "info.circle" },
    };

    const TabFacts& factsOf(SettingsTab tab)
    {
        return *std::ranges::find(facts, tab, &TabFacts::tab);
    }

} // namespace

std::string_view identifierOf(SettingsTab tab)
{
    return factsOf(tab).identifier;
}

std::string_view titleOf(SettingsTab tab)
{
    return factsOf(tab).title;
}

std::string_view symbolOf(SettingsTab tab)
{
    return factsOf(tab).symbol;
}

std::optional<SettingsTab> settingsTabNamed(std::string_view identifier)
{
    const auto* const found = std::ranges::find(facts, identifier, &TabFacts::identifier);
    return found == facts.end() ? std::nullopt : std::optional(found->tab);
}

void SettingsTabSelection::select(std::string_view identifier)
{
    if (const auto tab = settingsTabNamed(identifier))
        selection.set(*tab);
}

} // namespace korvane
