#include "panel/PanelController.h"

#include "panel/PanelFixture.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

    using test::PanelFixture;
    using Done = std::vector<test::FakeClipActions::Done>;

    TEST(PanelOpeningTest, TheClipOnTheClipboardIsSelected)
    {
        PanelFixture f;
        f.fill({ "a", "b", "c" });

        f.controller.prepareToOpen("b");

        EXPECT_EQ(f.selected(), "b");
    }

    TEST(PanelOpeningTest, TheClipboardsTextIsKnownInEitherCanonicalForm)
    {
        PanelFixture f;
        f.fill({ "a", "caf\u00E9" });

        f.controller.prepareToOpen("cafe\u0301");

        EXPECT_EQ(f.selected(), "caf\u00E9");
    }

    TEST(PanelOpeningTest, AnUnknownOrAbsentTextSelectsTheFirstClip)
    {
        PanelFixture f;
        f.fill({ "a", "b" });

        f.selectAt(1);
        f.controller.prepareToOpen("elsewhere");
        EXPECT_EQ(f.selected(), "a");

        f.selectAt(1);
        f.controller.prepareToOpen(std::nullopt);
        EXPECT_EQ(f.selected(), "a");
    }

    TEST(PanelOpeningTest, AnEmptyHistoryHasNoSelection)
    {
        PanelFixture f;

        f.controller.prepareToOpen("a");

        EXPECT_EQ(f.store.panel().selectedClipID.value(), std::nullopt);
    }

    TEST(PanelOpeningTest, TheSearchIsClearedAndTheTabStays)
    {
        PanelFixture f;
        f.fill({ "a", "b", "c" });
        f.store.togglePin(f.idAt(2));
        f.store.panel().panelFilterTab.set(FilterTab::pinned);
        f.store.panel().panelSearch.set("zzz");

        f.controller.prepareToOpen("b");

        EXPECT_EQ(f.store.panel().panelSearch.value(), "");
        EXPECT_EQ(f.store.panel().panelFilterTab.value(), FilterTab::pinned);
        EXPECT_EQ(f.selected(), "c");
    }

    TEST(PanelOpeningTest, OpeningsAreCountedAndPlaceNothing)
    {
        PanelFixture f;
        f.fill({ "a" });

        f.controller.prepareToOpen(std::nullopt);
        f.controller.prepareToOpen(std::nullopt);

        EXPECT_EQ(f.store.panel().panelOpenCount.value(), 2);
        EXPECT_EQ(f.actions.done, Done {});
    }

    TEST(PanelOpeningTest, TheSelectionStandsWhenTheOpeningIsTold)
    {
        PanelFixture f;
        f.fill({ "a", "b" });
        std::string selected;
        const auto connection
            = f.store.panel().panelOpenCount.onChange([&](int) { selected = f.selected(); });

        f.controller.prepareToOpen("b");

        EXPECT_EQ(selected, "b");
    }

} // namespace
} // namespace korvane
