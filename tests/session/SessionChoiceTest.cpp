#include "session/SessionChoice.h"

#include <gtest/gtest.h>

#include <string>

namespace korvane {
namespace {

    CompositorServices wlroots()
    {
        return { { { "zwlr_data_control_manager_v1", 2 }, { "zwlr_layer_shell_v1", 4 },
            { "zwlr_foreign_toplevel_manager_v1", 3 }, { "zwp_virtual_keyboard_manager_v1", 1 } } };
    }

    /// KDE, as a program sees it that has no desktop entry.
    CompositorServices untrustingKde()
    {
        return { { { "zwlr_data_control_manager_v1", 2 }, { "zwlr_layer_shell_v1", 3 },
            { "org_kde_plasma_shell", 8 } } };
    }

    CompositorServices gnome()
    {
        return { { { "xdg_wm_base", 4 } } };
    }

    SessionFacts on(std::optional<CompositorServices> compositor, bool hasX11 = true)
    {
        return { {}, compositor ? "wayland-0" : "", std::move(compositor), hasX11 ? ":0" : "",
            hasX11 };
    }

    SessionFacts wanting(std::string wanted, SessionFacts facts)
    {
        facts.wanted = std::move(wanted);
        return facts;
    }

    bool says(const SessionFacts& facts, const std::string& line)
    {
        return sessionReport(facts, "/usr/bin/korvane").find(line) != std::string::npos;
    }

    TEST(
        SessionChoiceTest, ACompositorThatTellsOfCopiesAndHasLayersIsTakenEvenWithAnXServerBesideIt)
    {
        EXPECT_EQ(chooseSession(on(wlroots())).server, DisplayServer::wayland);
        EXPECT_EQ(chooseSession(on(untrustingKde())).server, DisplayServer::wayland);
    }

    TEST(SessionChoiceTest, ACompositorWithNewerDataControlWillDo)
    {
        const CompositorServices newer { { { "ext_data_control_manager_v1", 1 },
            { "zwlr_layer_shell_v1", 4 } } };

        EXPECT_EQ(chooseSession(on(newer)).server, DisplayServer::wayland);
    }

    TEST(SessionChoiceTest, ACompositorWithoutThemIsReachedThroughItsXServer)
    {
        EXPECT_EQ(chooseSession(on(gnome())).server, DisplayServer::x11);
    }

    TEST(SessionChoiceTest, ASessionOfAnXServerAloneIsThat)
    {
        EXPECT_EQ(chooseSession(on(std::nullopt)).server, DisplayServer::x11);
    }

    TEST(SessionChoiceTest, TheVariableOverrides)
    {
        EXPECT_EQ(chooseSession(wanting("x11", on(wlroots()))).server, DisplayServer::x11);
        EXPECT_EQ(chooseSession(wanting("wayland", on(wlroots()))).server, DisplayServer::wayland);
    }

    TEST(SessionChoiceTest, TheVariableIsNotPassedOverWhereItCannotBe)
    {
        EXPECT_EQ(chooseSession(wanting("wayland", on(gnome()))).reason,
            "the compositor offers no clipboard of other programs (data-control)");
        EXPECT_EQ(chooseSession(wanting("wayland", on(std::nullopt))).reason,
            "there is no Wayland display (WAYLAND_DISPLAY is not set)");
        EXPECT_EQ(chooseSession(wanting("x11", on(wlroots(), false))).reason,
            "there is no X11 display (DISPLAY is not set)");
        EXPECT_EQ(chooseSession(wanting("mir", on(wlroots()))).reason,
            "KORVANE_PLATFORM is \"mir\"; it may be x11 or wayland");
    }

    TEST(SessionChoiceTest, WhereThereIsNothingItSaysWhy)
    {
        EXPECT_EQ(chooseSession(on(std::nullopt, false)).reason,
            "there is no X11 display (DISPLAY is not set)");
        EXPECT_EQ(chooseSession(on(gnome(), false)).reason,
            "the compositor offers no clipboard of other programs (data-control), and there is no "
            "X11 "
            "display (DISPLAY is not set)");
        SessionFacts gone;
        gone.waylandDisplay = "wayland-7";
        gone.x11Display = ":9";
        EXPECT_EQ(chooseSession(gone).reason,
            "no Wayland compositor answers at wayland-7, and there is no X11 display (no X server "
            "answers "
            "at :9)");
    }

    TEST(SessionReportTest, TellsWhatAWlrootsCompositorGivesAndHowToBindAKey)
    {
        EXPECT_TRUE(says(on(wlroots()), "Wayland\n"));
        EXPECT_TRUE(says(on(wlroots()), "  application in front    yes\n"));
        EXPECT_TRUE(says(on(wlroots()), "  pasting                 yes\n"));
        EXPECT_TRUE(says(on(wlroots()), "bindsym Ctrl+space exec /usr/bin/korvane --toggle"));
    }

    TEST(SessionReportTest, TellsWhatKdeKeepsFromAProgramWithoutADesktopEntry)
    {
        EXPECT_TRUE(says(on(untrustingKde()), "  application in front    no\n      KDE gives it"));
        EXPECT_TRUE(says(on(untrustingKde()), "  pasting                 no\n      KDE gives it"));
    }

    TEST(SessionReportTest, KdeGivesTheShortcutToEveryProgram)
    {
        EXPECT_TRUE(says(on(untrustingKde()), "  global shortcut         yes\n"));
    }

    TEST(SessionReportTest, TellsTheLimitsOfXwayland)
    {
        EXPECT_TRUE(says(on(gnome()), "X11, by Xwayland"));
        EXPECT_TRUE(
            says(on(gnome()), "  pasting                 no\n      into X11 programs only\n"));
    }

    TEST(SessionReportTest, TellsThatX11IsBlindWhereTheCompositorHasServicesOfItsOwn)
    {
        const auto facts = wanting("x11", on(wlroots()));

        EXPECT_TRUE(says(facts, "X11, by Xwayland, as KORVANE_PLATFORM says\n"));
        EXPECT_TRUE(says(facts, "  copies of all programs  no\n"));
    }

    TEST(SessionReportTest, SpeaksOfKdeOnKdeOnly)
    {
        const CompositorServices bare { { { "ext_data_control_manager_v1", 1 },
            { "zwlr_layer_shell_v1", 4 } } };

        EXPECT_TRUE(says(
            on(bare), "  pasting                 no\n      without it, paste by the keyboard\n"));
        EXPECT_FALSE(says(on(bare), "KDE"));
    }

    TEST(SessionReportTest, PromisesEverythingOnX11)
    {
        EXPECT_EQ(sessionReport(on(std::nullopt), "korvane").find(" no"), std::string::npos);
    }

} // namespace
} // namespace korvane
