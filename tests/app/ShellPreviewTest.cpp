#include "app/PanelShell.h"

#include "support/AppFixture.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace korvane {
namespace {

    struct PreviewFixture : test::AppFixture {
        PreviewFixture()
        {
            launch();
            copy("older");
            copy("newer");
            shell().showPanel();
        }
        PanelShell& shell() { return app->shell(); }
        const ClipItem& clip(std::size_t index) { return app->clipStore().clips().at(index); }
    };

    TEST(ShellPreviewTest, ThePreviewsWindowIsMadeAtTheFirstShowingAndKept)
    {
        PreviewFixture f;
        ASSERT_EQ(f.preview, nullptr);

        f.shell().showPreview(f.clip(0), {});
        const auto* const first = f.preview;
        f.shell().hidePreview();
        f.shell().showPreview(f.clip(1), {});

        ASSERT_NE(first, nullptr);
        EXPECT_EQ(f.preview, first);
        EXPECT_EQ(f.preview->shows, 2);
    }

    TEST(ShellPreviewTest, ShowingAPreviewBeforeThePanelStandsDoesNothing)
    {
        test::AppFixture f;
        f.make();

        f.app->shell().showPreview({}, {});
        f.app->shell().hidePreview();

        EXPECT_EQ(f.preview, nullptr);
        EXPECT_FALSE(f.app->shell().isPreviewVisible());
    }

    TEST(ShellPreviewTest, SpaceShowsTheSelectedClipAndSpaceAgainHidesIt)
    {
        PreviewFixture f;

        f.press(keycodes::space);
        ASSERT_NE(f.preview, nullptr);
        EXPECT_TRUE(f.preview->isShown);
        EXPECT_EQ(f.preview->clip.text, "newer");

        f.press(keycodes::space);
        EXPECT_FALSE(f.preview->isShown);
        EXPECT_TRUE(f.panel->isShown);
    }

    TEST(ShellPreviewTest, ItGoesWithAPanelThatIsPlacedAnew)
    {
        PreviewFixture f;
        f.press(keycodes::space);
        const double toThePanel = f.preview->place.left() - f.panel->place.left();

        f.screens.statusItem.x = 400;
        f.screens.found();

        EXPECT_EQ(f.panel->place.left(), 412 - 180);
        EXPECT_EQ(f.preview->place.left() - f.panel->place.left(), 360 + 8);
        EXPECT_NE(toThePanel, 360 + 8); // there was no room on that side
        EXPECT_EQ(f.preview->shows, 1);
    }

    TEST(ShellPreviewTest, MovesAndTabsHideThePreview)
    {
        for (const auto key : { keycodes::downArrow, keycodes::upArrow, keycodes::tab }) {
            PreviewFixture f;
            f.press(keycodes::space);

            f.press(key);

            EXPECT_FALSE(f.preview->isShown) << key;
            EXPECT_TRUE(f.panel->isShown) << key;
        }
    }

    TEST(ShellPreviewTest, ASearchThatHidesTheClipHidesItsPreview)
    {
        PreviewFixture f;
        f.press(keycodes::space);

        f.app->clipStore().panel().panelSearch.set("old");

        EXPECT_FALSE(f.preview->isShown);
    }

    TEST(ShellPreviewTest, ASearchThatFindsTheClipAndPinningLeaveThePreviewAsItIs)
    {
        PreviewFixture f;
        f.press(keycodes::space);

        f.app->clipStore().panel().panelSearch.set("new");
        f.press(35, modifiers::command, "p");
        f.copy("the newest");

        EXPECT_TRUE(f.preview->isShown);
        EXPECT_EQ(f.preview->clip.text, "newer");
    }

    TEST(ShellPreviewTest, AClipThatIsDeletedIsNotReadAnyLonger)
    {
        PreviewFixture f;
        f.press(keycodes::space);

        f.press(keycodes::backspace, modifiers::command);

        EXPECT_EQ(f.clipCount(), 1U);
        EXPECT_FALSE(f.preview->isShown);
    }

    TEST(ShellPreviewTest, AnotherClipThatIsDeletedLeavesThePreview)
    {
        PreviewFixture f;
        f.press(keycodes::space);

        f.panelController->remove(f.clip(1).id);

        EXPECT_EQ(f.clipCount(), 1U);
        EXPECT_TRUE(f.preview->isShown);
    }

    TEST(ShellPreviewTest, AClickOnAnotherTabHidesThePreviewAndOneOnTheChosenTabDoesNot)
    {
        PreviewFixture f;
        f.press(keycodes::space);

        f.panelController->switchTab(FilterTab::all);
        EXPECT_TRUE(f.preview->isShown);
        f.panelController->switchTab(FilterTab::text);
        EXPECT_FALSE(f.preview->isShown);
    }

    TEST(ShellPreviewTest, HidingThePanelHidesThePreviewFirst)
    {
        PreviewFixture f;
        f.press(keycodes::space);
        bool wasPanelShown = false;
        f.preview->onHide = [&] { wasPanelShown = f.panel->isShown; };

        f.shell().hidePanel();

        EXPECT_TRUE(wasPanelShown);
        EXPECT_FALSE(f.preview->isShown);
        EXPECT_FALSE(f.panel->isShown);
    }

    TEST(ShellPreviewTest, ThePreviewIsAsHighAsItsTextAndStandsOnTheRightOfThePanelsMiddle)
    {
        PreviewFixture f;

        f.press(keycodes::space);

        const auto& panel = f.panel->place;
        EXPECT_EQ(f.preview->measuredWidth, 460);
        EXPECT_EQ(
            f.preview->place, (Rect { panel.left() - 8 - 484, panel.middleY() - 62, 484, 124 }))
            << "the panel stands too far on the right for it";
    }

    TEST(ShellPreviewTest, SideAndPositionAreReadAtEachShowing)
    {
        PreviewFixture f;
        f.panel->setFrame({ 500, 400, 360, 474 });
        f.press(keycodes::space);
        EXPECT_EQ(f.preview->place.left(), 868);
        EXPECT_EQ(f.preview->place.middleY(), 637);

        f.preferences.set(keys::previewSide, std::string("left"));
        f.preferences.set(keys::previewPosition, std::string("top"));
        f.shell().showPreview(f.clip(0), {});
        EXPECT_EQ(f.preview->place.left(), 8);
        EXPECT_EQ(f.preview->place.top(), 874 - 121);

        f.preferences.set(keys::previewPosition, std::string("follow"));
        f.shell().showPreview(f.clip(0), 219.0);
        EXPECT_EQ(f.preview->place.middleY(), 874 - 219);

        f.preferences.set(keys::previewSide, std::string("Left"));
        f.preferences.set(keys::previewPosition, std::string("centre"));
        f.shell().showPreview(f.clip(0), 219.0);
        EXPECT_EQ(f.preview->place.left(), 868);
        EXPECT_EQ(f.preview->place.middleY(), 637);
    }

    TEST(ShellPreviewTest, ThePreviewFollowsTheRowThatTheListTellsOf)
    {
        PreviewFixture f;
        f.preferences.set(keys::previewPosition, std::string("follow"));
        f.app->clipStore().panel().selectedRowMidY = 149;

        f.press(keycodes::space);

        EXPECT_EQ(f.preview->place.middleY(), f.panel->place.top() - 149);
    }

    TEST(ShellPreviewTest, ThePreviewStaysWithinWhatTheBarsLeaveFreeAtThatMoment)
    {
        PreviewFixture f;
        f.press(keycodes::space);
        f.press(keycodes::space);
        f.preview->height = 10000;
        f.screens.visible = { 0, 60, 1440, 814 };

        f.press(keycodes::space);

        EXPECT_EQ(f.preview->place.height, 814 - 16);
        EXPECT_EQ(f.preview->place.top(), 874 - 4);
    }

    TEST(ShellPreviewTest, AnOpenPreviewGoesOnToAnotherClip)
    {
        PreviewFixture f;
        f.press(keycodes::space);
        f.preview->height = 300;

        f.panelController->quickLook(f.clip(1).id);

        EXPECT_EQ(f.preview->clip.text, "older");
        EXPECT_EQ(f.preview->place.height, 324);
        EXPECT_TRUE(f.preview->isShown);
    }

    TEST(ShellPreviewTest, ShowingAnOpenPanelLeavesThePreviewAboveIt)
    {
        PreviewFixture f;
        f.press(keycodes::space);

        f.shell().showPanel();
        EXPECT_EQ(f.preview->shows, 2);

        f.press(keycodes::space);
        f.shell().showPanel();
        EXPECT_FALSE(f.preview->isShown);
    }

} // namespace
} // namespace korvane
