#include "capture/IgnoredApps.h"

#include "model/Preferences.h"
#include "support/MemoryPreferences.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using List = std::vector<std::string>;
    using BundleIDs = IgnoredApps::BundleIDs;

    List stored(const Preferences& preferences)
    {
        return preferences.value<List>(keys::ignoredBundleIDs).value_or(List { "nothing stored" });
    }

    TEST(IgnoredAppsTest, TheSixPasswordManagersStandInTheirOrder)
    {
        const std::vector<std::string_view> expected { "com.apple.Passwords",
            "com.agilebits.onepassword7", "com.agilebits.onepassword-osx", "com.lastpass.lastpass",
            "com.apple.keychainaccess", "org.keepassx.keepassxc" };

        EXPECT_EQ(std::vector<std::string_view>(
                      passwordManagerBundleIDs.begin(), passwordManagerBundleIDs.end()),
            expected);
    }

    TEST(IgnoredAppsTest, PasswordManagersAreIgnoredWithAnEmptyList)
    {
        test::MemoryPreferences preferences;
        const IgnoredApps apps(preferences);

        for (const auto id : passwordManagerBundleIDs)
            EXPECT_TRUE(apps.contains(id)) << id;
    }

    TEST(IgnoredAppsTest, LetterCaseMatters)
    {
        test::MemoryPreferences preferences;
        IgnoredApps apps(preferences);
        apps.add("org.example.Notes");

        EXPECT_FALSE(apps.contains("com.apple.passwords"));
        EXPECT_FALSE(apps.contains("org.example.notes"));
        EXPECT_TRUE(apps.contains("org.example.Notes"));
    }

    TEST(IgnoredAppsTest, NothingStoredIsAnEmptyListAndWritesNothing)
    {
        test::MemoryPreferences preferences;
        const IgnoredApps apps(preferences);

        EXPECT_EQ(apps.userIgnoredBundleIDs(), BundleIDs {});
        EXPECT_EQ(preferences.writes, 0);
    }

    TEST(IgnoredAppsTest, AStoredValueOfAnotherTypeIsAnEmptyListAndIsLeftInPlace)
    {
        test::MemoryPreferences preferences;
        preferences.values.emplace(keys::ignoredBundleIDs, std::string("org.example.notes"));
        const IgnoredApps apps(preferences);

        EXPECT_EQ(apps.userIgnoredBundleIDs(), BundleIDs {});
        EXPECT_EQ(preferences.writes, 0);
    }

    TEST(IgnoredAppsTest, AStoredPasswordManagerIsRemovedFromTheStoredList)
    {
        test::MemoryPreferences preferences;
        preferences.values.emplace(
            keys::ignoredBundleIDs, List { "org.keepassx.keepassxc", "org.example.notes" });
        const IgnoredApps apps(preferences);

        EXPECT_EQ(apps.userIgnoredBundleIDs(), BundleIDs { "org.example.notes" });
        EXPECT_EQ(stored(preferences), List { "org.example.notes" });
    }

    TEST(IgnoredAppsTest, DuplicatesAloneAreNoReasonToWrite)
    {
        test::MemoryPreferences preferences;
        preferences.values.emplace(
            keys::ignoredBundleIDs, List { "org.example.notes", "org.example.notes" });
        const IgnoredApps apps(preferences);

        EXPECT_EQ(apps.userIgnoredBundleIDs(), BundleIDs { "org.example.notes" });
        EXPECT_EQ(preferences.writes, 0);
    }

    TEST(IgnoredAppsTest, AddingWritesTheWholeList)
    {
        test::MemoryPreferences preferences;
        IgnoredApps apps(preferences);
        apps.add("org.example.notes");

        apps.add("org.example.mail");

        EXPECT_EQ(stored(preferences), (List { "org.example.mail", "org.example.notes" }));
    }

    TEST(IgnoredAppsTest, AddingAPasswordManagerDoesAndWritesNothing)
    {
        test::MemoryPreferences preferences;
        IgnoredApps apps(preferences);

        apps.add("com.lastpass.lastpass");

        EXPECT_EQ(apps.userIgnoredBundleIDs(), BundleIDs {});
        EXPECT_EQ(preferences.writes, 0);
    }

    TEST(IgnoredAppsTest, AddingTwiceLeavesOneEntry)
    {
        test::MemoryPreferences preferences;
        IgnoredApps apps(preferences);

        apps.add("org.example.notes");
        apps.add("org.example.notes");

        EXPECT_EQ(stored(preferences), List { "org.example.notes" });
    }

    TEST(IgnoredAppsTest, RemovingWritesEvenWhatWasNotThere)
    {
        test::MemoryPreferences preferences;
        IgnoredApps apps(preferences);

        apps.remove("org.example.notes");

        EXPECT_EQ(stored(preferences), List {});
    }

    TEST(IgnoredAppsTest, ReloadingTakesOverAnotherListWithoutWriting)
    {
        test::MemoryPreferences preferences;
        IgnoredApps apps(preferences);
        apps.add("org.example.notes");
        preferences.values.insert_or_assign(std::string(keys::ignoredBundleIDs),
            List { "com.apple.Passwords", "org.example.mail" });
        const int writesBefore = preferences.writes;

        EXPECT_TRUE(apps.reload());
        EXPECT_FALSE(apps.reload());

        EXPECT_EQ(apps.userIgnoredBundleIDs(), BundleIDs { "org.example.mail" });
        EXPECT_EQ(preferences.writes, writesBefore);
    }

} // namespace
} // namespace korvane
