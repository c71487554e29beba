#include "panel/PanelController.h"

#include "panel/PanelFixture.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using test::PanelFixture;
    using Texts = PanelFixture::Texts;
    using Done = std::vector<test::FakeClipActions::Done>;

    TEST(PanelRowTest, AClickSelectsAndChooses)
    {
        PanelFixture f;
        f.fill({ "a", "b" });

        f.controller.click(f.idAt(1));

        EXPECT_EQ(f.selected(), "b");
        EXPECT_EQ(f.actions.done, (Done { { "choose", "b" } }));
    }

    TEST(PanelRowTest, TheMenusActionsReachTheirClip)
    {
        PanelFixture f;
        f.fill({ "a", "b" });
        f.selectAt(0);
        const auto id = f.idAt(1);

        f.controller.copy(id);
        f.controller.pasteDirectly(id);
        f.controller.reveal(id);

        EXPECT_EQ(
            f.actions.done, (Done { { "copy", "b" }, { "activate", "b" }, { "reveal", "b" } }));
        EXPECT_EQ(f.selected(), "a");
    }

    TEST(PanelRowTest, PinningAndRenamingReachTheStore)
    {
        PanelFixture f;
        f.fill({ "a" });
        const auto id = f.idAt(0);

        f.controller.togglePin(id);
        f.controller.rename(id, " Invoice ");

        EXPECT_TRUE(f.store.clips()[0].isPinned);
        EXPECT_EQ(f.store.clips()[0].customName, " Invoice ");
    }

    TEST(PanelRowTest, QuickLookShowsAnyRowsClipAndSelectsItForTheKeys)
    {
        PanelFixture f;
        f.fill({ "a", "b" });
        f.selectAt(0);
        f.store.panel().selectedRowMidY = 145;

        f.controller.quickLook(f.idAt(1));

        ASSERT_EQ(f.host.previews.size(), 1U);
        EXPECT_EQ(f.host.previews[0].clip.text, "b");
        EXPECT_EQ(f.host.previews[0].rowMidY, 145);
        EXPECT_EQ(f.selected(), "b");
    }

    TEST(PanelRowTest, DeletingAnotherRowKeepsTheSelection)
    {
        PanelFixture f;
        f.fill({ "a", "b", "c" });
        f.selectAt(2);

        f.controller.remove(f.idAt(0));

        EXPECT_EQ(f.displayed(), (Texts { "b", "c" }));
        EXPECT_EQ(f.selected(), "c");
    }

    TEST(PanelRowTest, DeletingTheSelectedRowMovesTheSelectionOn)
    {
        PanelFixture f;
        f.fill({ "a", "b", "c" });
        f.selectAt(0);

        f.controller.remove(f.idAt(0));

        EXPECT_EQ(f.selected(), "b");
    }

    TEST(PanelRowTest, AnUnknownClipIsIgnored)
    {
        PanelFixture f;
        f.fill({ "a" });
        const auto unknown = ClipId::random();

        f.controller.click(unknown);
        f.controller.copy(unknown);
        f.controller.pasteDirectly(unknown);
        f.controller.reveal(unknown);
        f.controller.quickLook(unknown);
        f.controller.remove(unknown);

        EXPECT_EQ(f.actions.done, Done {});
        EXPECT_TRUE(f.host.previews.empty());
        EXPECT_EQ(f.displayed(), Texts { "a" });
        EXPECT_EQ(f.selected(), "none");
    }

    TEST(PanelRowTest, AClickOnATabSwitchesToIt)
    {
        PanelFixture f;

        f.controller.switchTab(FilterTab::code);
        f.loop.advance(1s);

        EXPECT_EQ(f.store.panel().panelFilterTab.value(), FilterTab::code);
    }

    TEST(PanelRowTest, PreferencesAreTheShellsToOpen)
    {
        PanelFixture f;

        f.controller.openPreferences();

        EXPECT_EQ(f.host.preferencesOpened, 1);
    }

    TEST(PanelRowTest, AnActionMayDeleteTheClipThatItIsGiven)
    {
        struct Deleting : test::FakeClipActions {
            explicit Deleting(ClipStore& given)
                : store(given)
            {
            }
            void choose(const ClipItem& clip) override
            {
                store.deleteClip(clip);
                FakeClipActions::choose(clip);
            }
            ClipStore& store;
        };
        PanelFixture f;
        f.fill({ "a clip that is long enough not to live inside the string", "b" });
        Deleting actions(f.store);
        PanelController controller(f.store, f.monitor, f.preferences, f.host, actions, f.tabs);

        controller.click(f.idAt(0));

        EXPECT_EQ(actions.done,
            (Done { { "choose", "a clip that is long enough not to live inside the string" } }));
    }

} // namespace
} // namespace korvane
