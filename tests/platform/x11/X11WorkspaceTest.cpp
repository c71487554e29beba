#include "platform/x11/X11Workspace.h"

#include "WorkspaceFixture.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

namespace korvane {
namespace {

    using test::TestWindow;
    using test::waitUntil;
    using test::WorkspaceFixture;

    TEST(X11WorkspaceTest, TheApplicationsOwnIdentifierCounts)
    {
        WorkspaceFixture f;
        f.install("org.example.Viewer", "Name=Viewer\n");
        f.install("org.example.Editor", "Name=Editor\n");
        f.window.setClass("editor", "Editor");
        f.window.setText("_GTK_APPLICATION_ID", "org.example.Viewer", "UTF8_STRING");

        EXPECT_EQ(f.whenInFront()->bundleIdentifier, "org.example.Viewer");

        f.window.setText("_KDE_NET_WM_DESKTOP_FILE", "org.example.Editor", "UTF8_STRING");
        EXPECT_EQ(f.workspace.frontmost()->bundleIdentifier, "org.example.Editor");
    }

    TEST(X11WorkspaceTest, TheProgramFileIdentifiesAWindowWithAnUnknownClass)
    {
        WorkspaceFixture f;
        const auto self = std::filesystem::read_symlink("/proc/self/exe");
        std::ofstream(f.folder.path() / "self.desktop")
            << "[Desktop Entry]\nType=Application\nName=Self\nExec=" << self.string() << '\n';
        std::array<char, 256> machine {};
        ASSERT_EQ(::gethostname(machine.data(), machine.size() - 1), 0);
        f.window.setClass("x", "Unknown");
        f.window.setNumbers("_NET_WM_PID", { static_cast<std::uint32_t>(::getpid()) });

        EXPECT_EQ(f.whenInFront()->bundleIdentifier, "Unknown"); // not said to run on this machine
        f.window.setText("WM_CLIENT_MACHINE", machine.data());
        EXPECT_EQ(f.workspace.frontmost()->bundleIdentifier, "self");
    }

    TEST(X11WorkspaceTest, WithoutAClassTheTitlesProgramIsTheName)
    {
        WorkspaceFixture f;
        f.window.setText("_NET_WM_NAME", "a – letter — Büro", "UTF8_STRING");

        const auto application = f.whenInFront();

        ASSERT_TRUE(application);
        EXPECT_EQ(application->bundleIdentifier, std::nullopt);
        EXPECT_EQ(application->localizedName, "Büro");
    }

    TEST(X11WorkspaceTest, AWindowThatTellsNothingIsAnApplicationWithoutNames)
    {
        WorkspaceFixture f;

        const auto application = f.whenInFront();

        ASSERT_TRUE(application);
        EXPECT_EQ(application->bundleIdentifier, std::nullopt);
        EXPECT_EQ(application->localizedName, std::nullopt);
        EXPECT_EQ(application->window, f.window.id());
    }

    TEST(X11WorkspaceTest, AWindowOfOursIsNotTheApplicationInFront)
    {
        WorkspaceFixture f;
        TestWindow own(f.toolkit);
        own.setClass("korvane", "Korvane");
        ASSERT_TRUE(f.bringToFront(own));

        EXPECT_EQ(f.workspace.frontmost(), std::nullopt);
    }

    TEST(X11WorkspaceTest, TheApplicationBehindOurPanelStaysTheOneInFront)
    {
        WorkspaceFixture f;
        f.window.setClass("keepassxc", "KeePassXC");
        ASSERT_TRUE(f.whenInFront());
        TestWindow panel(f.toolkit, TestWindow::Kind::overrideRedirect);
        panel.map();
        xcb_set_input_focus(f.toolkit.get(), XCB_INPUT_FOCUS_PARENT, panel.id(), XCB_CURRENT_TIME);
        f.toolkit.sync();
        ASSERT_TRUE(waitUntil([&] { return panel.hasKeyboard(); }));

        f.setActive(XCB_NONE); // what managers say that do not know the panel
        f.deliverEvents();

        // This desktop's manager may have something to say at the same moment.
        ASSERT_TRUE(
            waitUntil([&] { return f.workspace.frontmost() && f.workspace.frontmost()->isKnown; }));
        EXPECT_EQ(f.workspace.frontmost()->window, f.window.id());
        EXPECT_EQ(f.workspace.frontmost()->bundleIdentifier, "org.keepassx.keepassxc");
    }

    TEST(X11WorkspaceTest, AnActiveWindowThatHasVanishedIsNone)
    {
        WorkspaceFixture f;
        ASSERT_TRUE(f.bringToFront(f.window));
        const auto before = f.otherProgram.activeWindow();

        f.setActive(xcb_generate_id(f.otherProgram.get())); // of a window that does not exist
        EXPECT_TRUE(waitUntil([&] { return !f.workspace.frontmost(); }));
        f.setActive(before);
        f.deliverEvents();
        EXPECT_NE(f.workspace.frontmost(), std::nullopt);
    }

    TEST(X11WorkspaceTest, IllFormedTextInPropertiesIsRepaired)
    {
        WorkspaceFixture f;
        f.window.setClass("x", "Caf\xE9"); // Latin-1, as the property's type has it
        f.window.setText("_GTK_APPLICATION_ID", "\xFF\xFE", "UTF8_STRING");

        EXPECT_EQ(f.whenInFront()->bundleIdentifier, "Café");
    }

    TEST(X11WorkspaceTest, PropertiesOfTheWrongTypeSayNothing)
    {
        WorkspaceFixture f;
        f.window.setNumbers("WM_CLASS", { 0x41414141, 0x42424242 });
        f.window.setNumbers("_KDE_NET_WM_DESKTOP_FILE", { 1, 2, 3 });
        f.window.setText("_NET_WM_PID", "four");
        f.window.setNumbers("_NET_WM_NAME", { 7 });

        const auto application = f.whenInFront();

        ASSERT_TRUE(application);
        EXPECT_EQ(application->bundleIdentifier, std::nullopt);
        EXPECT_EQ(application->localizedName, std::nullopt);
    }

    TEST(X11WorkspaceTest, HugePropertiesAreCutOff)
    {
        WorkspaceFixture f;
        f.window.setText("_NET_WM_NAME", std::string(200'000, 'n'), "UTF8_STRING");

        const auto application = f.whenInFront();

        ASSERT_TRUE(application && application->localizedName);
        EXPECT_EQ(application->localizedName->size(), 1024U);
    }

    TEST(X11WorkspaceTest, AClassWithoutItsSecondPartIsNone)
    {
        WorkspaceFixture f;
        f.window.setText("WM_CLASS", "alone");

        EXPECT_EQ(f.whenInFront()->bundleIdentifier, std::nullopt);
    }

    TEST(X11WorkspaceTest, AnApplicationComesBackFromAPanelThatTheManagerNeverSaw)
    {
        WorkspaceFixture f;
        const auto application = f.whenInFront();
        TestWindow panel(f.toolkit, TestWindow::Kind::overrideRedirect);
        panel.map();
        xcb_set_input_focus(f.toolkit.get(), XCB_INPUT_FOCUS_PARENT, panel.id(), XCB_CURRENT_TIME);
        f.toolkit.sync();
        ASSERT_TRUE(waitUntil([&] { return panel.hasKeyboard(); }));

        panel.unmap();
        f.workspace.activate(*application);

        EXPECT_TRUE(waitUntil([&] { return f.window.isActive() && f.window.hasKeyboard(); }));
    }

    TEST(X11WorkspaceTest, ATerminalIsKnownByItsEntryOrItsClass)
    {
        WorkspaceFixture f;
        f.install("blackscreen", "Name=Black Screen\nCategories=System;TerminalEmulator;\n");
        f.window.setClass("x", "Blackscreen");
        ASSERT_TRUE(f.whenInFront());
        EXPECT_TRUE(f.workspace.isTerminalInFront());

        f.window.setClass("x", "URxvt");
        EXPECT_TRUE(f.workspace.isTerminalInFront());

        f.window.setClass("x", "Editor");
        EXPECT_FALSE(f.workspace.isTerminalInFront());
    }

} // namespace
} // namespace korvane
