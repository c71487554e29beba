#include "settings/GeneralTexts.h"

#include "support/MemoryPreferences.h"

#include <gtest/gtest.h>

#include <span>
#include <vector>

namespace korvane {
namespace {

    /// A picker: its key, what it offers and which of that is chosen.
    struct Picker {
        std::string_view key;
        std::span<const Choice> choices;
        std::string (*shown)(const Preferences&);
        std::string_view whenAbsent;
    };

    const std::vector<Picker>& pickers()
    {
        static const std::vector<Picker> all {
            { keys::chevronActivation, generaltexts::chevronChoices, generaltexts::chevronValue,
                "hover" },
            { keys::theme, generaltexts::themeChoices, generaltexts::themeValue, "auto" },
            { keys::panelAlignment, generaltexts::alignmentChoices, generaltexts::alignmentValue,
                "middle" },
            { keys::previewSide, generaltexts::sideChoices, generaltexts::sideValue, "right" },
            { keys::previewPosition, generaltexts::positionChoices, generaltexts::positionValue,
                "middle" },
        };
        return all;
    }

    TEST(GeneralTextsTest, EachPickerOffersTheseSegments)
    {
        using Titles = std::vector<std::string_view>;
        std::vector<Titles> offered;
        for (const auto& picker : pickers()) {
            offered.emplace_back();
            for (const auto& choice : picker.choices)
                offered.back().push_back(choice.title);
        }

        EXPECT_EQ(offered,
            (std::vector<Titles> { { "On hover", "On click" }, { "Automatic", "Light", "Dark" },
                { "Left", "Middle", "Right" }, { "Left", "Right" },
                { "Top", "Middle", "Follow" } }));
    }

    TEST(GeneralTextsTest, WithNothingStoredEachPickerShowsWhatTheProgramActsOn)
    {
        const test::MemoryPreferences preferences;

        for (const auto& picker : pickers())
            EXPECT_EQ(picker.shown(preferences), picker.whenAbsent) << picker.key;
    }

    TEST(GeneralTextsTest, EachPickerShowsEachOfItsValues)
    {
        test::MemoryPreferences preferences;

        for (const auto& picker : pickers()) {
            for (const auto& choice : picker.choices) {
                preferences.set(picker.key, std::string(choice.value));
                EXPECT_EQ(picker.shown(preferences), choice.value) << picker.key;
            }
        }
    }

    TEST(GeneralTextsTest, WhatIsStoredAndUnknownShowsAsTheDefault)
    {
        test::MemoryPreferences preferences;

        for (const auto& picker : pickers()) {
            for (const auto* unknown : { "Dark", "center", "Left", "" }) {
                preferences.set(picker.key, std::string(unknown));
                EXPECT_EQ(picker.shown(preferences), picker.whenAbsent) << picker.key;
            }
        }
    }

    TEST(GeneralTextsTest, TheTipOfTheChevronsQuotesBothChoices)
    {
        EXPECT_EQ(generaltexts::chevronToolTip,
            R"("On hover" scrolls the clip list continuously while the cursor sits on the up/down chevron. "On click" scrolls a few rows per tap.)");
    }

} // namespace
} // namespace korvane
