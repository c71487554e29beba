#pragma once

#include "model/Alerts.h"

#include <string_view>

namespace korvane {

/// Every text of the Data page.
namespace datatexts {
    inline constexpr std::string_view statistics = "Statistics";
    inline constexpr std::string_view totalClips = "Total clips:";
    inline constexpr std::string_view pinned = "Pinned:";
    inline constexpr std::string_view actions = "Actions";
    inline constexpr std::string_view exportHistory = "Export history...";
    inline constexpr std::string_view importHistory = "Import history...";
    inline constexpr std::string_view clearHistory = "Clear history";
    /// While a large history is on its way.
    inline constexpr std::string_view exporting = "Exporting…";
    inline constexpr std::string_view importing = "Importing…";

    /// What the save dialog proposes.
    inline constexpr std::string_view exportName = "Korvane_export.json";

    inline Alert clearQuestion()
    {
        Alert question { "Clear history?",
            "All unpinned clips will be deleted. This cannot be undone.",
            { "Clear all", "Cancel" } };
        question.isDestructive = true;
        return question;
    }
} // namespace datatexts

} // namespace korvane
