#include "model/Preferences.h"

#include "model/Limits.h"
#include "support/MemoryPreferences.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace korvane {
namespace {

    using test::MemoryPreferences;
    using namespace std::string_literals;

    TEST(PreferencesTest, AFreshDomainYieldsTheDefaults)
    {
        MemoryPreferences fresh;

        const auto limits = readLimits(fresh);

        EXPECT_EQ(limits.maxClips, 500);
        EXPECT_EQ(limits.maxClipSizeKB, 64);
        EXPECT_EQ(limits.maxTotalSizeMB, 500);
        EXPECT_EQ(theme(fresh), Theme::automatic);
        EXPECT_EQ(panelAlignment(fresh), PanelAlignment::middle);
        EXPECT_EQ(previewSide(fresh), PreviewSide::right);
        EXPECT_EQ(previewPosition(fresh), PreviewPosition::middle);
        EXPECT_EQ(chevronActivation(fresh), ChevronActivation::hover);
        EXPECT_FALSE(fresh.boolean(keys::playSoundOnCopy));
        EXPECT_FALSE(fresh.boolean(keys::playSoundOnSelect));
        EXPECT_FALSE(fresh.boolean(keys::playSoundOnPaste));
        EXPECT_FALSE(fresh.boolean(keys::showCountInMenuBar));
        EXPECT_FALSE(fresh.boolean(keys::skipMaxClipsWarning));
        EXPECT_FALSE(fresh.boolean(keys::privateModeEnabled));
        EXPECT_TRUE(isTabCyclingEnabled(fresh));
        EXPECT_FALSE(isDirectPasteEnabled(fresh));
        EXPECT_EQ(fresh.value<std::vector<std::string>>(keys::ignoredBundleIDs), std::nullopt);
    }

    TEST(PreferencesTest, ReadingTheDefaultsStoresNothing)
    {
        MemoryPreferences fresh;

        static_cast<void>(readLimits(fresh));
        static_cast<void>(theme(fresh));

        EXPECT_EQ(fresh.writes, 0);
    }

    TEST(PreferencesTest, AMaxClipsOfZeroOrLessReadsAs500)
    {
        MemoryPreferences preferences;
        for (const std::int64_t stored : { std::int64_t { 0 }, std::int64_t { -1 }, INT64_MIN }) {
            preferences.values[std::string(keys::maxClips)] = stored;

            EXPECT_EQ(readLimits(preferences).maxClips, 500) << stored;
        }
    }

    TEST(PreferencesTest, AMaxTotalSizeOfZeroReadsAs500)
    {
        MemoryPreferences preferences;
        preferences.values[std::string(keys::maxTotalSizeMB)] = std::int64_t { 0 };

        EXPECT_EQ(readLimits(preferences).maxTotalSizeMB, 500);
    }

    TEST(PreferencesTest, AClipSizeOfAnEarlierVersionIsTakenOverOnceAndStoredNowhere)
    {
        MemoryPreferences preferences;
        preferences.values[std::string(keys::maxClipSizeMB)] = std::int64_t { 2 };

        EXPECT_EQ(readLimits(preferences).maxClipSizeKB, 2048);

        EXPECT_TRUE(preferences.values.empty());
        EXPECT_EQ(readLimits(preferences).maxClipSizeKB, 64); // the next start
    }

    TEST(PreferencesTest, AnEarlierClipSizeThatIsNoPositiveIntegerIsLeftInPlace)
    {
        for (const PreferenceValue& stored :
            { PreferenceValue(std::int64_t { 0 }), PreferenceValue(std::int64_t { -2 }),
                PreferenceValue("2"s), PreferenceValue(true), PreferenceValue(2.0) }) {
            MemoryPreferences preferences;
            preferences.values[std::string(keys::maxClipSizeMB)] = stored;

            EXPECT_EQ(readLimits(preferences).maxClipSizeKB, 64) << stored.index();
            EXPECT_EQ(preferences.get(keys::maxClipSizeMB), stored) << stored.index();
        }
    }

    TEST(PreferencesTest, AClipSizeThatIsStoredGoesBeforeTheOneOfAnEarlierVersion)
    {
        MemoryPreferences preferences;
        preferences.values[std::string(keys::maxClipSizeKB)] = std::int64_t { 8 };
        preferences.values[std::string(keys::maxClipSizeMB)] = std::int64_t { 2 };

        EXPECT_EQ(readLimits(preferences).maxClipSizeKB, 8);
        EXPECT_TRUE(preferences.get(keys::maxClipSizeMB).has_value());
    }

    TEST(PreferencesTest, AThemeInCapitalsIsNotRecognisedAndFollowsTheSystem)
    {
        MemoryPreferences preferences;
        preferences.values[std::string(keys::theme)] = "Dark"s;

        EXPECT_EQ(theme(preferences), Theme::automatic);
    }

    TEST(PreferencesTest, APanelAlignmentOfCenterIsTheMiddle)
    {
        MemoryPreferences preferences;
        preferences.values[std::string(keys::panelAlignment)] = "center"s;

        EXPECT_EQ(panelAlignment(preferences), PanelAlignment::middle);
    }

    TEST(PreferencesTest, EveryAllowedChoiceIsRecognised)
    {
        MemoryPreferences preferences;
        const auto stored = [&preferences](std::string_view key, std::string_view value) -> auto&
        {
            preferences.values[std::string(key)] = std::string(value);
            return preferences;
        };

        EXPECT_EQ(theme(stored(keys::theme, "auto")), Theme::automatic);
        EXPECT_EQ(theme(stored(keys::theme, "light")), Theme::light);
        EXPECT_EQ(theme(stored(keys::theme, "dark")), Theme::dark);
        EXPECT_EQ(panelAlignment(stored(keys::panelAlignment, "left")), PanelAlignment::left);
        EXPECT_EQ(panelAlignment(stored(keys::panelAlignment, "middle")), PanelAlignment::middle);
        EXPECT_EQ(panelAlignment(stored(keys::panelAlignment, "right")), PanelAlignment::right);
        EXPECT_EQ(previewSide(stored(keys::previewSide, "left")), PreviewSide::left);
        EXPECT_EQ(previewSide(stored(keys::previewSide, "right")), PreviewSide::right);
        EXPECT_EQ(previewSide(stored(keys::previewSide, "above")), PreviewSide::right);
        EXPECT_EQ(previewPosition(stored(keys::previewPosition, "top")), PreviewPosition::top);
        EXPECT_EQ(
            previewPosition(stored(keys::previewPosition, "middle")), PreviewPosition::middle);
        EXPECT_EQ(
            previewPosition(stored(keys::previewPosition, "follow")), PreviewPosition::follow);
        EXPECT_EQ(
            previewPosition(stored(keys::previewPosition, "bottom")), PreviewPosition::middle);
        EXPECT_EQ(
            chevronActivation(stored(keys::chevronActivation, "hover")), ChevronActivation::hover);
        EXPECT_EQ(
            chevronActivation(stored(keys::chevronActivation, "click")), ChevronActivation::click);
        EXPECT_EQ(
            chevronActivation(stored(keys::chevronActivation, "Click")), ChevronActivation::hover);
    }

    TEST(PreferencesTest, OnlyAStoredFalseTurnsTabCyclingOff)
    {
        MemoryPreferences preferences;
        auto& stored = preferences.values[std::string(keys::enableTabCycling)];

        stored = false;
        EXPECT_FALSE(isTabCyclingEnabled(preferences));
        for (const PreferenceValue& value :
            { PreferenceValue(true), PreferenceValue(std::int64_t { 0 }), PreferenceValue(0.0),
                PreferenceValue("false"s) }) {
            stored = value;
            EXPECT_TRUE(isTabCyclingEnabled(preferences)) << value.index();
        }
    }

    TEST(PreferencesTest, DirectPasteIsOnOnceTheKeyHoldsTrue)
    {
        MemoryPreferences preferences;

        preferences.set(keys::enableDirectPaste, true);
        EXPECT_TRUE(isDirectPasteEnabled(preferences));
        preferences.set(keys::enableDirectPaste, false);
        EXPECT_FALSE(isDirectPasteEnabled(preferences));
    }

    TEST(PreferencesTest, AValueOfAnotherTypeReadsAsAbsent)
    {
        MemoryPreferences preferences;
        preferences.values["text"] = "1"s;
        preferences.values["number"] = std::int64_t { 1 };
        preferences.values["switch"] = true;
        preferences.values["real"] = 3.0;

        EXPECT_FALSE(preferences.boolean("text"));
        EXPECT_FALSE(preferences.boolean("number"));
        EXPECT_EQ(preferences.integer("text"), 0);
        EXPECT_EQ(preferences.integer("switch"), 0);
        EXPECT_EQ(preferences.integer("real"), 0);
        EXPECT_EQ(preferences.string("number"), std::nullopt);
        EXPECT_EQ(preferences.value<std::vector<std::string>>("text"), std::nullopt);
        EXPECT_EQ(preferences.value<std::int64_t>("number"), 1);
    }

    TEST(PreferencesTest, TheFourteenSoundsAreOfferedInTheirOrder)
    {
        const std::vector<std::string_view> expected { "Basso", "Blow", "Bottle", "Frog", "Funk",
            "Glass", "Hero", "Morse", "Ping", "Pop", "Purr", "Sosumi", "Submarine", "Tink" };

        EXPECT_TRUE(std::ranges::equal(soundNames, expected));
    }

} // namespace
} // namespace korvane
