#include "settings/IgnoredAppsEditor.h"

#include "capture/ClipboardMonitor.h"
#include "model/Preferences.h"
#include "support/FakeAlerts.h"
#include "support/FakeApplications.h"
#include "support/FakePasteboard.h"
#include "support/FakeWorkspace.h"
#include "support/ManualLoop.h"
#include "support/MemoryPreferences.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace korvane {
namespace {

    struct EditorFixture {
        explicit EditorFixture(std::vector<std::string> ignored = {})
        {
            if (!ignored.empty())
                preferences.values.insert_or_assign(
                    std::string(keys::ignoredBundleIDs), std::move(ignored));
            applications.install("firefox", "Firefox");
            applications.install("org.example.Gamma", "Gamma");
            applications.install("beta", "beta");
            monitor = std::make_unique<ClipboardMonitor>(pasteboard, workspace, preferences, loop);
            editor = std::make_unique<IgnoredAppsEditor>(*monitor, applications, chooser, alerts);
        }

        test::ManualLoop loop;
        test::MemoryPreferences preferences;
        test::FakePasteboard pasteboard { loop };
        test::FakeWorkspace workspace;
        test::FakeApplications applications;
        test::FakeApplicationChooser chooser;
        test::FakeAlerts alerts;
        std::unique_ptr<ClipboardMonitor> monitor;
        std::unique_ptr<IgnoredAppsEditor> editor;

        void add(std::string_view identifier)
        {
            editor->add();
            chooser.answer("/apps/" + std::string(identifier) + ".desktop");
        }
        std::vector<std::string> names() const
        {
            std::vector<std::string> result;
            for (const auto& app : editor->apps())
                result.push_back(app.name);
            return result;
        }
        std::vector<std::string> stored() const
        {
            return preferences.value<std::vector<std::string>>(keys::ignoredBundleIDs)
                .value_or(std::vector<std::string> {});
        }
    };
    using Names = std::vector<std::string>;

    TEST(IgnoredAppsEditorTest, TheListIsEmptyAtFirst)
    {
        const EditorFixture f;

        EXPECT_TRUE(f.editor->apps().empty());
        EXPECT_EQ(f.editor->selection(), std::nullopt);
    }

    TEST(IgnoredAppsEditorTest, EntriesAreOrderedByNameWhateverTheCase)
    {
        const EditorFixture f({ "org.example.Gamma", "firefox", "beta" });

        EXPECT_EQ(f.names(), (Names { "beta", "Firefox", "Gamma" }));
    }

    TEST(IgnoredAppsEditorTest, AnEntryHasTheIconOfItsApplication)
    {
        const EditorFixture f({ "firefox" });

        EXPECT_EQ(f.editor->apps(),
            (std::vector<IgnoredApp> { { "firefox", "Firefox", "icon-of-firefox" } }));
    }

    TEST(IgnoredAppsEditorTest, AnApplicationThatIsChosenIsAddedAndStored)
    {
        EditorFixture f;

        f.add("firefox");

        EXPECT_EQ(f.names(), (Names { "Firefox" }));
        EXPECT_EQ(f.stored(), (Names { "firefox" }));
        EXPECT_TRUE(f.monitor->userIgnoredBundleIDs().contains("firefox"));
    }

    TEST(IgnoredAppsEditorTest, AddingTheSameApplicationTwiceLeavesOneEntry)
    {
        EditorFixture f;

        f.add("firefox");
        f.add("firefox");

        EXPECT_EQ(f.names(), (Names { "Firefox" }));
        EXPECT_EQ(f.stored(), (Names { "firefox" }));
    }

    TEST(IgnoredAppsEditorTest, AddingClearsTheSelection)
    {
        EditorFixture f({ "firefox" });
        f.editor->select("firefox");

        f.add("beta");

        EXPECT_EQ(f.editor->selection(), std::nullopt);
    }

    TEST(IgnoredAppsEditorTest, AddingWhatIsThereAlreadyClearsTheSelectionToo)
    {
        EditorFixture f({ "firefox" });
        f.editor->select("firefox");

        f.add("firefox");

        EXPECT_EQ(f.editor->selection(), std::nullopt);
    }

    TEST(IgnoredAppsEditorTest, GivingUpTheChoiceChangesNothing)
    {
        EditorFixture f({ "firefox" });
        f.editor->select("firefox");

        f.editor->add();
        f.chooser.answer(std::nullopt);

        EXPECT_EQ(f.names(), (Names { "Firefox" }));
        EXPECT_EQ(f.editor->selection(), "firefox");
        EXPECT_TRUE(f.alerts.asked.empty());
    }

    TEST(IgnoredAppsEditorTest, WhatCannotBeReadIsToldAndLeavesTheListAsItIs)
    {
        EditorFixture f({ "firefox" });
        f.editor->select("firefox");

        f.add("nowhere");

        ASSERT_EQ(f.alerts.asked.size(), 1U);
        EXPECT_EQ(f.alerts.asked[0].message, "Could not read app bundle");
        EXPECT_EQ(f.alerts.asked[0].informativeText,
            "The selected item does not appear to be a valid macOS application.");
        EXPECT_EQ(f.alerts.asked[0].buttons, (std::vector<std::string> { "OK" }));
        EXPECT_EQ(f.alerts.asked[0].kind, Alert::Kind::warning);
        EXPECT_EQ(f.names(), (Names { "Firefox" }));
        EXPECT_EQ(f.editor->selection(), "firefox");
    }

    TEST(IgnoredAppsEditorTest, AnApplicationWithoutAnIdentifierCannotBeReadEither)
    {
        EditorFixture f;
        f.applications.all.push_back({ "", "Nameless", "", "/apps/.desktop" });

        f.add("");

        ASSERT_EQ(f.alerts.asked.size(), 1U);
        EXPECT_EQ(f.alerts.asked[0].message, "Could not read app bundle");
        EXPECT_TRUE(f.editor->apps().empty());
    }

    TEST(IgnoredAppsEditorTest, APasswordManagerOfTheBuiltInListIsNotAdded)
    {
        EditorFixture f;
        f.applications.install("org.keepassx.keepassxc", "KeePassXC");

        f.add("org.keepassx.keepassxc");

        EXPECT_TRUE(f.editor->apps().empty());
        EXPECT_TRUE(f.alerts.asked.empty());
        EXPECT_EQ(f.preferences.writes, 0);
    }

    TEST(IgnoredAppsEditorTest, WhatIsIgnoredAlreadyIsNotOffered)
    {
        EditorFixture f({ "firefox" });
        f.applications.install("org.keepassx.keepassxc", "KeePassXC");

        f.editor->add();

        Names offered;
        for (const auto& application : f.chooser.offered)
            offered.push_back(application.name);
        EXPECT_EQ(offered, (Names { "Gamma", "beta" }));
    }

    TEST(IgnoredAppsEditorTest, TheSelectedEntryIsRemoved)
    {
        EditorFixture f({ "firefox", "beta" });
        f.editor->select("firefox");

        f.editor->removeSelected();

        EXPECT_EQ(f.names(), (Names { "beta" }));
        EXPECT_EQ(f.stored(), (Names { "beta" }));
        EXPECT_EQ(f.editor->selection(), std::nullopt);
    }

    TEST(IgnoredAppsEditorTest, WithoutASelectionNothingIsRemoved)
    {
        EditorFixture f({ "firefox" });

        f.editor->removeSelected();

        EXPECT_EQ(f.names(), (Names { "Firefox" }));
        EXPECT_EQ(f.preferences.writes, 0);
    }

    TEST(IgnoredAppsEditorTest, AnApplicationThatWasRemovedFromTheSystemIsUnknownAndCanBeRemoved)
    {
        EditorFixture f({ "firefox" });

        f.applications.uninstall("firefox");
        EXPECT_EQ(f.editor->apps(), (std::vector<IgnoredApp> { { "firefox", "Unknown app", "" } }));

        f.editor->select("firefox");
        f.editor->removeSelected();
        EXPECT_TRUE(f.editor->apps().empty());
        EXPECT_TRUE(f.stored().empty());
    }

    TEST(IgnoredAppsEditorTest, AChangeFromOutsideShowsAndDropsASelectionThatIsGone)
    {
        EditorFixture f({ "firefox", "beta" });
        f.editor->select("firefox");
        int changes = 0;
        const auto connection = f.editor->changed.connect([&] { ++changes; });

        f.preferences.set(keys::ignoredBundleIDs, Names { "beta" });

        EXPECT_EQ(f.names(), (Names { "beta" }));
        EXPECT_EQ(f.editor->selection(), std::nullopt);
        EXPECT_GE(changes, 1);
    }

    TEST(IgnoredAppsEditorTest, ASelectionIsToldOnce)
    {
        EditorFixture f({ "firefox" });
        int changes = 0;
        const auto connection = f.editor->changed.connect([&] { ++changes; });

        f.editor->select("firefox");
        f.editor->select("firefox");

        EXPECT_EQ(changes, 1);
    }

    TEST(IgnoredAppsEditorTest, AChoiceThatComesAfterItsEndComesToNothing)
    {
        EditorFixture f;
        f.editor->add();

        f.editor.reset();
        f.chooser.answer("/apps/firefox.desktop");

        EXPECT_TRUE(f.monitor->userIgnoredBundleIDs().empty());
    }

} // namespace
} // namespace korvane
