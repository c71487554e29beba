#include "settings/LaunchAtLogin.h"

#include "support/FakeLoginItem.h"

#include <gtest/gtest.h>

#include <sstream>

namespace korvane {
namespace {

    struct LoginFixture {
        test::FakeLoginItem item;
        std::ostringstream output;
    };

    TEST(LaunchAtLoginTest, AtFirstItIsAsTheLoginItemIs)
    {
        LoginFixture f;
        f.item.enabled = true;

        EXPECT_TRUE(LaunchAtLogin(f.item, f.output).isOn());
        f.item.enabled = false;
        EXPECT_FALSE(LaunchAtLogin(f.item, f.output).isOn());
    }

    TEST(LaunchAtLoginTest, TurningItRegistersTheLoginItemAndTakesItAway)
    {
        LoginFixture f;
        LaunchAtLogin launch(f.item, f.output);

        launch.turn(true);
        EXPECT_TRUE(f.item.enabled);
        launch.turn(false);

        EXPECT_FALSE(f.item.enabled);
        EXPECT_EQ(f.output.str(), "");
    }

    TEST(LaunchAtLoginTest, AFailureIsWrittenToTheOutputAndThePositionStays)
    {
        LoginFixture f;
        LaunchAtLogin launch(f.item, f.output);
        f.item.failure = "the disk is full";

        launch.turn(true);

        EXPECT_EQ(f.output.str(), "Launch at login error: the disk is full\n");
        EXPECT_TRUE(launch.isOn());
        EXPECT_FALSE(f.item.enabled);
    }

    TEST(LaunchAtLoginTest, TheLoginItemIsLookedAtOnce)
    {
        LoginFixture f;
        LaunchAtLogin launch(f.item, f.output);

        f.item.enabled = true;

        EXPECT_FALSE(launch.isOn());
        EXPECT_EQ(f.item.looks, 1);
    }

} // namespace
} // namespace korvane
