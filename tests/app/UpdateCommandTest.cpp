// "Check for Updates..." in the whole program.

#include "support/AppFixture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace korvane {
namespace {

    using Texts = std::vector<std::string>;

    struct UpdateCommandTest : testing::Test {
        UpdateCommandTest() { f.launch(); }

        void check(const std::string& answer)
        {
            f.statusItem.choose("Check for Updates...");
            f.documents.answer(answer);
        }

        test::AppFixture f;
    };

    constexpr const char* newer = R"({"version":"999.0","url":"https://korvane.example/get"})";

    TEST_F(UpdateCommandTest, NothingIsFetchedUntilTheUserAsks)
    {
        f.loop.advance(std::chrono::hours { 24 });
        EXPECT_TRUE(f.documents.fetched.empty());

        f.statusItem.choose("Check for Updates...");

        EXPECT_EQ(f.documents.fetched, (Texts { "https://korvane.example/korvane/version.json" }));
    }

    TEST_F(UpdateCommandTest, ANewerVersionIsOfferedAndItsAddressOpened)
    {
        check(newer);

        ASSERT_EQ(f.alerts.shown.size(), 1U);
        EXPECT_EQ(f.alerts.shown[0].message, "Korvane update available");
        EXPECT_EQ(f.alerts.shown[0].informativeText, "Version 999.0 is available.");
        EXPECT_EQ(f.alerts.shown[0].buttons, (Texts { "Download Update", "Later" }));
        EXPECT_EQ(f.alerts.shown[0].kind, Alert::Kind::notice);
        EXPECT_TRUE(f.desktop.opened.empty());

        f.alerts.agree();
        EXPECT_EQ(f.desktop.opened, (Texts { "https://korvane.example/get" }));
    }

    TEST_F(UpdateCommandTest, TheVersionOfTheBuildIsTheOneThatRuns)
    {
        check(R"({"version":")" KORVANE_VERSION R"(","url":"https://korvane.example/get"})");

        ASSERT_EQ(f.alerts.shown.size(), 1U);
        EXPECT_EQ(f.alerts.shown[0].message, "Korvane is up to date");
    }

    TEST_F(UpdateCommandTest, ACheckThatFailsIsTold)
    {
        check("Not found");

        ASSERT_EQ(f.alerts.shown.size(), 1U);
        EXPECT_EQ(f.alerts.shown[0].message, "Korvane could not check for updates");
    }

    TEST_F(UpdateCommandTest, TheAlertClosesAPanelThatIsOpen)
    {
        f.app->shell().showPanel();
        f.panelController->choose(applicationmenu::Action::checkForUpdates);
        EXPECT_TRUE(f.panel->isShown);

        f.documents.answer(newer);

        EXPECT_FALSE(f.panel->isShown);
        EXPECT_EQ(f.alerts.shown.size(), 1U);
    }

    TEST_F(UpdateCommandTest, WhileTheAlertIsOpenCopiesAreCapturedAndTheShortcutWorks)
    {
        check(newer);

        f.copy("meanwhile");
        f.grabber.pressed();
        f.loop.turn();

        EXPECT_EQ(f.clipText(0), "meanwhile");
        EXPECT_TRUE(f.panel->isShown);
    }

    TEST_F(UpdateCommandTest, TheProgramMayEndWhileACheckIsUnderWay)
    {
        f.statusItem.choose("Check for Updates...");
        f.app.reset();

        f.documents.answer(newer);

        EXPECT_TRUE(f.alerts.shown.empty());
    }

} // namespace
} // namespace korvane
