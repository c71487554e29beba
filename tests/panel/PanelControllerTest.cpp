#include "panel/PanelController.h"

#include "panel/PanelFixture.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using test::PanelFixture;
    using Texts = PanelFixture::Texts;
    using Done = std::vector<test::FakeClipActions::Done>;

    TEST(PanelControllerTest, ReturnActivatesTheSelectedClip)
    {
        PanelFixture f;
        f.fill({ "a", "b" });
        f.selectAt(1);

        EXPECT_TRUE(f.press(keycodes::returnKey));

        EXPECT_EQ(f.actions.done, (Done { { "activate", "b" } }));
    }

    TEST(PanelControllerTest, AClipThatIsOnlySelectedIsNotPutOnTheClipboard)
    {
        PanelFixture f;
        f.fill({ "a", "b" });

        f.controller.selectClip(f.idAt(1));
        f.controller.selectClip(ClipId::random());

        EXPECT_EQ(f.selected(), "b");
        EXPECT_EQ(f.actions.done, Done {});
        EXPECT_EQ(f.host.previewHides, 2);
    }

    TEST(PanelControllerTest, KeysThatAddressNothingAreConsumedAndDoNothing)
    {
        PanelFixture f;
        f.fill({ "a" });

        EXPECT_TRUE(f.press(keycodes::returnKey));
        EXPECT_TRUE(f.press(keycodes::space));
        EXPECT_TRUE(f.press(keycodes::backspace, modifiers::command));
        EXPECT_TRUE(f.type("p", modifiers::command));

        EXPECT_EQ(f.actions.done, Done {});
        EXPECT_TRUE(f.host.previews.empty());
        EXPECT_EQ(f.displayed(), Texts { "a" });
        EXPECT_FALSE(f.store.clips().front().isPinned);
    }

    TEST(PanelControllerTest, CommandThreeWithTwoClipsIsNotConsumed)
    {
        PanelFixture f;
        f.preferences.set(keys::enableDirectPaste, true);
        f.fill({ "a", "b" });

        EXPECT_FALSE(f.type("3", modifiers::command));

        EXPECT_EQ(f.actions.done, Done {});
    }

    TEST(PanelControllerTest, CommandZeroActivatesTheTenthClip)
    {
        PanelFixture f;
        f.preferences.set(keys::enableDirectPaste, true);
        f.fill({ "1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11" });

        EXPECT_TRUE(f.type("0", modifiers::command));

        EXPECT_EQ(f.actions.done, (Done { { "activate", "10" } }));
    }

    TEST(PanelControllerTest, ACommandDigitLeavesTheSelectionWhereItIs)
    {
        PanelFixture f;
        f.preferences.set(keys::enableDirectPaste, true);
        f.fill({ "a", "b" });
        f.selectAt(0);

        EXPECT_TRUE(f.type("2", modifiers::command));

        EXPECT_EQ(f.selected(), "a");
        EXPECT_EQ(f.actions.done, (Done { { "activate", "b" } }));
    }

    TEST(PanelControllerTest, CommandDigitsPassUntilTheSettingHasBeenWritten)
    {
        PanelFixture f;
        f.fill({ "a" });
        EXPECT_FALSE(f.type("1", modifiers::command));

        f.preferences.set(keys::enableDirectPaste, true);
        EXPECT_TRUE(f.type("1", modifiers::command));
    }

    TEST(PanelControllerTest, TabPassesWhenCyclingIsStoredAsFalse)
    {
        PanelFixture f;
        f.preferences.set(keys::enableTabCycling, false);

        EXPECT_FALSE(f.press(keycodes::tab));

        EXPECT_EQ(f.store.panel().tabDisplayed.value(), std::nullopt);
    }

    TEST(PanelControllerTest, TabCyclesWhenTheSettingWasNeverWrittenOrIsNoBoolean)
    {
        PanelFixture f;
        EXPECT_TRUE(f.press(keycodes::tab));

        f.preferences.set(keys::enableTabCycling, std::int64_t { 0 });
        EXPECT_TRUE(f.press(keycodes::tab));

        EXPECT_EQ(f.store.panel().tabDisplayed.value(), FilterTab::text);
    }

    TEST(PanelControllerTest, ShiftTabFromTheFirstTabGoesToTheNinth)
    {
        PanelFixture f;

        EXPECT_TRUE(f.press(keycodes::tab, modifiers::shift));

        EXPECT_EQ(f.store.panel().tabDisplayed.value(), FilterTab::large);
    }

    TEST(PanelControllerTest, SpaceShowsThePreviewOfTheSelectedClipBesideItsRow)
    {
        PanelFixture f;
        f.fill({ "a", "b" });
        f.selectAt(1);
        f.store.panel().selectedRowMidY = 201.5;

        EXPECT_TRUE(f.press(keycodes::space));

        ASSERT_EQ(f.host.previews.size(), 1U);
        EXPECT_EQ(f.host.previews[0].clip.text, "b");
        EXPECT_EQ(f.host.previews[0].rowMidY, 201.5);
    }

    TEST(PanelControllerTest, ASecondSpaceHidesThePreview)
    {
        PanelFixture f;
        f.fill({ "a" });
        f.selectAt(0);

        f.press(keycodes::space);
        EXPECT_TRUE(f.press(keycodes::space));

        EXPECT_FALSE(f.host.isPreviewVisible());
        EXPECT_EQ(f.host.previews.size(), 1U);
    }

    TEST(PanelControllerTest, CommandPTogglesThePinOfTheSelectedClip)
    {
        PanelFixture f;
        f.fill({ "a", "b" });
        f.selectAt(1);

        EXPECT_TRUE(f.type("p", modifiers::command));
        EXPECT_TRUE(f.store.clips()[1].isPinned);

        EXPECT_TRUE(f.type("P", modifiers::command | modifiers::shift));
        EXPECT_FALSE(f.store.clips()[1].isPinned);
    }

    TEST(PanelControllerTest, BackspaceAloneGoesToTheSearch)
    {
        PanelFixture f;
        f.fill({ "a" });
        f.selectAt(0);

        EXPECT_FALSE(f.press(keycodes::backspace));

        EXPECT_EQ(f.displayed(), Texts { "a" });
    }

    TEST(PanelControllerTest, EscapeClearsTheSearchAndSelectsTheFirstClip)
    {
        PanelFixture f;
        f.fill({ "alpha", "beta", "gamma" });
        f.store.panel().panelSearch.set("beta");
        f.selectAt(0);

        EXPECT_TRUE(f.press(keycodes::escape));

        EXPECT_EQ(f.store.panel().panelSearch.value(), "");
        EXPECT_EQ(f.selected(), "alpha");
        EXPECT_EQ(f.host.closes, 0);
    }

    TEST(PanelControllerTest, ASecondEscapeClosesThePanel)
    {
        PanelFixture f;
        f.fill({ "alpha" });
        f.store.panel().panelSearch.set("a");

        f.press(keycodes::escape);
        EXPECT_TRUE(f.press(keycodes::escape));

        EXPECT_EQ(f.host.closes, 1);
    }

    TEST(PanelControllerTest, TypingPassesToTheSearch)
    {
        PanelFixture f;

        EXPECT_FALSE(f.type("x"));
        EXPECT_FALSE(f.type("c", modifiers::command));
    }

    TEST(PanelControllerTest, EachLineOfTheProgramsMenuIsPassedToTheShell)
    {
        using enum applicationmenu::Action;
        PanelFixture f;

        f.controller.choose(openPreferences);
        EXPECT_EQ(f.host.preferencesOpened, 1);
        f.controller.choose(checkForUpdates);
        EXPECT_EQ(f.host.updateChecks, 1);
        f.controller.choose(openMakersPage);
        EXPECT_EQ(f.host.makersPagesOpened, 1);
        f.controller.choose(quit);
        EXPECT_EQ(f.host.quits, 1);
        EXPECT_EQ(f.host.closes, 0);
    }

    TEST(PanelControllerTest, PrivateModeIsTurnedOverAndTold)
    {
        PanelFixture f;
        std::vector<bool> told;
        const auto connection = f.controller.observePrivateMode(
            [&told](bool isPrivate) { told.push_back(isPrivate); });

        f.controller.togglePrivateMode();
        EXPECT_TRUE(f.monitor.isPrivateModeEnabled());
        EXPECT_TRUE(f.preferences.boolean(keys::privateModeEnabled));
        f.monitor.setPrivateModeEnabled(false); // by somebody else

        EXPECT_EQ(told, (std::vector<bool> { false, true, false }));
    }

    TEST(PanelControllerTest, HowTheChevronsScrollIsToldAtOnceAndWhenItChanges)
    {
        PanelFixture f;
        std::vector<ChevronActivation> told;
        const auto connection = f.controller.observeChevronActivation(
            [&told](ChevronActivation activation) { told.push_back(activation); });

        f.preferences.set(keys::chevronActivation, std::string("click"));

        EXPECT_EQ(told, (std::vector { ChevronActivation::hover, ChevronActivation::click }));
    }

} // namespace
} // namespace korvane
