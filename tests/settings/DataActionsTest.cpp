#include "settings/DataActions.h"

#include "settings/DataTexts.h"
#include "support/FakeAlerts.h"
#include "support/FakeFileDialogs.h"
#include "support/TransferFixture.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>

namespace korvane {
namespace {

    namespace fs = std::filesystem;
    using namespace std::chrono_literals;
    using Texts = std::vector<std::string>;

    struct ActionsFixture : test::TransferFixture {
        ActionsFixture() { fs::create_directory(chosen()); }

        /// Where the user saves.
        fs::path chosen() const { return temp.path() / "chosen"; }
        void saveAs(const std::string& name)
        {
            actions->exportHistory();
            dialogs.choose(chosen() / name);
            loop.advance(0ms);
        }
        bool isTemporaryFolderEmpty() const { return fs::is_empty(exports()); }

        test::FakeFileDialogs dialogs;
        test::FakeAlerts alerts;
        std::unique_ptr<DataActions> actions
            = std::make_unique<DataActions>(*store, loop, dialogs, alerts);
    };

    TEST(DataActionsTest, AnExportIsOfferedUnderItsNameAndCopiedToWhereTheUserWantsIt)
    {
        ActionsFixture f;
        f.add("clip");

        f.actions->exportHistory();
        EXPECT_EQ(f.dialogs.proposed, Texts { "Korvane_export.json" });
        EXPECT_EQ(test::namesIn(f.exports()).size(), 1U);
        f.dialogs.choose(f.chosen() / "mine.json");
        f.loop.advance(0ms);

        EXPECT_EQ(test::decoded(test::readBytes(f.chosen() / "mine.json")), f.store->clips());
        EXPECT_TRUE(f.isTemporaryFolderEmpty());
    }

    TEST(DataActionsTest, TheExportIsTheHistoryOfTheMomentWhenItWasAskedFor)
    {
        ActionsFixture f;
        f.add("before");
        f.actions->exportHistory();
        f.add("copied while the dialog was open");

        f.dialogs.choose(f.chosen() / "mine.json");
        f.loop.advance(0ms);

        const auto exported = test::decoded(test::readBytes(f.chosen() / "mine.json"));
        ASSERT_TRUE(exported && exported->size() == 1);
        EXPECT_EQ(exported->front().text, "before");
    }

    TEST(DataActionsTest, WhoGivesUpTheDialogLeavesNoTemporaryFile)
    {
        ActionsFixture f;
        f.actions->exportHistory();

        f.dialogs.giveUp();

        EXPECT_TRUE(f.isTemporaryFolderEmpty());
        EXPECT_TRUE(fs::is_empty(f.chosen()));
    }

    TEST(DataActionsTest, TheEndOfTheProgramLeavesNoTemporaryFile)
    {
        ActionsFixture f;
        f.actions->exportHistory();

        f.actions.reset();
        f.dialogs.choose(f.chosen() / "late.json");

        EXPECT_TRUE(f.isTemporaryFolderEmpty());
        EXPECT_TRUE(fs::is_empty(f.chosen()));
    }

    TEST(DataActionsTest, AFileOfThatNameStaysAndNobodyIsTold)
    {
        ActionsFixture f;
        test::writeBytes(f.chosen() / "mine.json", "old");

        f.saveAs("mine.json");

        EXPECT_EQ(test::readBytes(f.chosen() / "mine.json"), "old");
        EXPECT_TRUE(f.isTemporaryFolderEmpty());
        EXPECT_TRUE(f.alerts.asked.empty());
        EXPECT_TRUE(f.log.lines.empty());
    }

    TEST(DataActionsTest, AFolderThatIsNotThereGetsNoCopyAndNobodyIsTold)
    {
        ActionsFixture f;

        f.saveAs("no such folder/mine.json");
        EXPECT_TRUE(fs::is_empty(f.chosen()));
        EXPECT_TRUE(f.isTemporaryFolderEmpty());

        f.saveAs("mine.json");
        EXPECT_TRUE(fs::exists(f.chosen() / "mine.json"));
    }

    TEST(DataActionsTest, AnExportIsAJsonFileByItsName)
    {
        ActionsFixture f;
        for (const auto* name : { "plain", "two.txt", "three.json", "four.JSON" })
            f.saveAs(name);

        EXPECT_EQ(test::namesIn(f.chosen()),
            (std::set<std::string> { "plain.json", "two.txt.json", "three.json", "four.JSON" }));
    }

    TEST(DataActionsTest, AFileIsImported)
    {
        ActionsFixture f;
        const auto file = f.fileOf({ f.clipOfAge(1, "imported") });

        f.actions->importHistory();
        EXPECT_EQ(f.dialogs.openings, 1);
        f.dialogs.choose(file);

        EXPECT_EQ(f.texts(), Texts { "imported" });
    }

    TEST(DataActionsTest, WhoGivesUpTheDialogImportsNothing)
    {
        ActionsFixture f;
        f.add("clip");
        const auto saved = f.fileBytes();
        f.actions->importHistory();

        f.dialogs.giveUp();

        EXPECT_EQ(f.fileBytes(), saved);
    }

    TEST(DataActionsTest, AFileChosenAfterTheEndIsNotImported)
    {
        ActionsFixture f;
        const auto file = f.fileOf({ f.clipOfAge(1, "imported") });
        f.actions->importHistory();

        f.actions.reset();
        f.dialogs.choose(file);

        EXPECT_TRUE(f.store->clips().empty());
    }

    TEST(DataActionsTest, ClearingIsAskedAboutInThesePreciseWords)
    {
        ActionsFixture f;

        f.actions->clearHistory();

        ASSERT_EQ(f.alerts.asked.size(), 1U);
        const auto& question = f.alerts.asked.front();
        EXPECT_EQ(question.message, "Clear history?");
        EXPECT_EQ(
            question.informativeText, "All unpinned clips will be deleted. This cannot be undone.");
        EXPECT_EQ(question.buttons, (std::vector<std::string> { "Clear all", "Cancel" }));
        EXPECT_TRUE(question.isDestructive);
        EXPECT_FALSE(question.suppression);
    }

    TEST(DataActionsTest, ClearingLeavesExactlyThePinnedClips)
    {
        ActionsFixture f;
        f.add("one");
        f.addPinned("pinned");
        f.add("two");
        f.actions->clearHistory();

        f.alerts.agree();

        EXPECT_EQ(f.texts(), Texts { "pinned" });
    }

    TEST(DataActionsTest, WhoCancelsClearsNothing)
    {
        ActionsFixture f;
        f.add("one");
        f.actions->clearHistory();

        f.alerts.cancel();

        EXPECT_EQ(f.texts(), Texts { "one" });
    }

    TEST(DataActionsTest, AClearThatIsAgreedToAfterTheEndClearsNothing)
    {
        ActionsFixture f;
        f.add("one");
        f.actions->clearHistory();

        f.actions.reset();
        f.alerts.agree();

        EXPECT_EQ(f.texts(), Texts { "one" });
    }

    TEST(DataActionsTest, OneThingIsDoneAfterTheOther)
    {
        ActionsFixture f;
        f.actions->exportHistory();

        f.actions->exportHistory();
        f.actions->importHistory();
        f.actions->clearHistory();

        EXPECT_EQ(f.dialogs.proposed.size(), 1U);
        EXPECT_EQ(f.dialogs.openings, 0);
        EXPECT_TRUE(f.alerts.asked.empty());
        f.dialogs.giveUp();
        f.actions->clearHistory();
        f.alerts.cancel();
        f.actions->importHistory();
        EXPECT_EQ(f.dialogs.openings, 1);
    }

    TEST(DataActionsTest, WithoutAWindowToAskOverNothingIsCleared)
    {
        ActionsFixture f;
        f.add("one");
        f.alerts.hasWindow = false;

        f.actions->clearHistory();

        EXPECT_EQ(f.texts(), Texts { "one" });
        f.actions->importHistory();
        EXPECT_EQ(f.dialogs.openings, 1);
    }

    struct WorkFixture : ActionsFixture {
        using Work = DataActions::Work;

        void fillMegabytes(int count)
        {
            store->setMaxClipSizeKB(1024 * 1024);
            add(std::string(static_cast<std::size_t>(count) * 1024 * 1024, 'x'));
        }

        std::vector<Work> shown;
        Connection seen = actions->work.onChange([this](Work work) { shown.push_back(work); });
    };

    TEST(DataActionsTest, ALargeExportIsShownWhileItIsWrittenAndWhileItIsCopied)
    {
        WorkFixture f;
        f.fillMegabytes(9);

        f.actions->exportHistory();
        using Work = DataActions::Work;
        EXPECT_EQ(f.shown, (std::vector { Work::exporting, Work::none }));
        f.dialogs.choose(f.chosen() / "mine.json");
        EXPECT_EQ(f.actions->work.value(), Work::exporting);
        f.loop.advance(0ms);

        EXPECT_EQ(f.actions->work.value(), Work::none);
        EXPECT_EQ(f.shown.size(), 4U);
    }

    TEST(DataActionsTest, ALargeImportIsShownBeforeItBegins)
    {
        WorkFixture f;
        const auto file = f.fileOf({ f.clipOfAge(1, std::string(9UL * 1024 * 1024, 'x')) });
        bool wasEmpty = false;
        const auto seen = f.actions->work.onChange([&](DataActions::Work work) {
            wasEmpty |= work == DataActions::Work::importing && f.store->clips().empty();
        });
        f.actions->importHistory();

        f.dialogs.choose(file);

        EXPECT_TRUE(wasEmpty);
        EXPECT_EQ(f.actions->work.value(), DataActions::Work::none);
        EXPECT_EQ(f.store->clips().size(), 1U);
    }

    TEST(DataActionsTest, ASmallImportIntoALargeHistoryIsShownToo)
    {
        WorkFixture f;
        f.fillMegabytes(9);
        const auto file = f.fileOf({ f.clipOfAge(1, "small") });
        bool wasShown = false;
        const auto seen = f.actions->work.onChange(
            [&](DataActions::Work work) { wasShown |= work == DataActions::Work::importing; });
        f.actions->importHistory();

        f.dialogs.choose(file);

        EXPECT_TRUE(wasShown);
    }

    TEST(DataActionsTest, WhatIsDoneInAMomentIsNotShown)
    {
        WorkFixture f;
        f.add("clip");

        f.saveAs("mine.json");
        f.actions->importHistory();
        f.dialogs.choose(f.chosen() / "mine.json");

        EXPECT_TRUE(f.shown.empty());
    }

} // namespace
} // namespace korvane
