#include "platform/wayland/qt/OtherProgram.h"
#include "platform/wayland/qt/PanelDesk.h"
#include "platform/wayland/qt/TestSeat.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <linux/input-event-codes.h>

namespace korvane {
namespace {

    using test::seat;
    using test::waitUntil;

    TEST(LayerPanelTest, ItTakesTheKeyboardAndGivesItBack)
    {
        test::OtherWindow other;
        ASSERT_TRUE(waitUntil([&] { return other.hasKeyboard(); }));
        test::PanelDesk desk;
        desk.copyNumbered(3);

        ASSERT_TRUE(desk.open());
        EXPECT_TRUE(waitUntil([&] { return !other.hasKeyboard(); }));
        seat().type(KEY_C);
        seat().type(KEY_L);
        EXPECT_TRUE(waitUntil([&] { return desk.state().panelSearch.value() == "cl"; }))
            << desk.state().panelSearch.value();
        desk.shell().hidePanel();

        EXPECT_TRUE(waitUntil([&] { return other.hasKeyboard(); }));
        EXPECT_TRUE(test::PanelDesk::isConnected());
    }

    TEST(LayerPanelTest, AClickOutsideClosesItAndReachesNobody)
    {
        test::OtherWindow other;
        ASSERT_TRUE(waitUntil([&] { return other.hasKeyboard(); }));
        test::PanelDesk desk;
        ASSERT_TRUE(desk.open());

        seat().clickAt({ 200, 600 });

        EXPECT_TRUE(waitUntil([&] { return !desk.shell().isPanelVisible(); }));
        EXPECT_TRUE(waitUntil([&] { return other.hasKeyboard(); }));
        EXPECT_EQ(other.presses(), 0);
        EXPECT_TRUE(test::PanelDesk::isConnected());
    }

    TEST(LayerPanelTest, ItHangsUnderTheBar)
    {
        const test::OtherBar bar;
        test::PanelDesk desk;
        desk.copyNumbered(3);

        ASSERT_TRUE(desk.open());

        EXPECT_EQ(desk.ground().geometry(), QRect(0, 0, 1280, 800));
        EXPECT_EQ(desk.panel().visibleFrame(), QRect(1280 - 360 - 8, 30, 360, 320));
        EXPECT_TRUE(test::PanelDesk::isConnected());
    }

    TEST(LayerPanelTest, OpenedByTheIconItHangsUnderThePointer)
    {
        const test::OtherBar bar;
        test::PanelDesk desk;
        desk.copyNumbered(3);
        seat().moveTo({ 700, 14 });

        ASSERT_TRUE(desk.openByIcon());
        EXPECT_EQ(desk.panel().visibleFrame(), QRect(700 - 180, 30, 360, 320));
        desk.shell().hidePanel();
        seat().moveTo({ 100, 600 });
        ASSERT_TRUE(desk.open());

        EXPECT_EQ(desk.panel().visibleFrame(), QRect(700 - 180, 30, 360, 320));
        EXPECT_TRUE(test::PanelDesk::isConnected());
    }

    TEST(LayerPanelTest, ItOpensAgainAndAgain)
    {
        test::PanelDesk desk;
        desk.copyNumbered(3);

        for (int time = 0; time < 20; ++time) {
            ASSERT_TRUE(desk.open()) << time;
            seat().type(KEY_ESC);
            ASSERT_TRUE(waitUntil([&] { return !desk.shell().isPanelVisible(); })) << time;
        }

        EXPECT_TRUE(test::PanelDesk::isConnected());
    }

    TEST(LayerPanelTest, HiddenBeforeItWasSeenItLeavesNothingBehind)
    {
        test::OtherWindow other;
        ASSERT_TRUE(waitUntil([&] { return other.hasKeyboard(); }));
        test::PanelDesk desk;

        for (int time = 0; time < 20; ++time) {
            desk.shell().showPanel();
            desk.shell().hidePanel();
        }
        EXPECT_TRUE(test::PanelDesk::isConnected());
        EXPECT_TRUE(waitUntil([&] { return other.hasKeyboard(); }));
        EXPECT_TRUE(desk.open());
        EXPECT_TRUE(test::PanelDesk::isConnected());
    }

} // namespace
} // namespace korvane
