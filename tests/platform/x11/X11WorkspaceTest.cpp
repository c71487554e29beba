#include "platform/x11/X11Workspace.h"

#include "X11Desk.h"
#include "platform/x11/X11OutsideClicks.h"
#include "platform/xdg/DesktopEntries.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <unistd.h>

namespace korvane {
namespace {

    using test::TestClient;
    using test::TestWindow;
    using test::waitUntil;

    /// Waits for what other programs do, while none of our events is delivered.
    bool waitWithoutDelivering(const std::function<bool()>& isSo)
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds { 20 };
        while (!isSo())
            if (std::chrono::steady_clock::now() > end)
                return false;
        return true;
    }

    struct WorkspaceFixture : test::X11Desk {
        test::TempFolder folder;
        DesktopEntries entries { loop, { folder.path() } };
        TestClient toolkit; // the connection that our windows are made on
        X11Workspace workspace { connection, entries, windowsOf(toolkit.get()) };
        TestWindow window { otherProgram };

        void install(std::string_view id, std::string_view lines) const
        {
            std::ofstream(folder.path() / (std::string(id) + ".desktop"))
                << "[Desktop Entry]\nType=Application\nExec=true\n"
                << lines;
        }
        /// Says what is active, as a window manager does.
        void setActive(xcb_window_t active)
        {
            xcb_change_property(otherProgram.get(), XCB_PROP_MODE_REPLACE, otherProgram.root(),
                otherProgram.atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW, 32, 1, &active);
            otherProgram.sync();
        }
        /// Gives it the keyboard and says that it is active, as a window manager does.
        void goTo(const TestWindow& to)
        {
            xcb_set_input_focus(
                otherProgram.get(), XCB_INPUT_FOCUS_PARENT, to.id(), XCB_CURRENT_TIME);
            setActive(to.id());
        }
        /// Makes the next copies known to `atTheCopy`. Whatever happens from here on until the loop
        /// runs lies in the queue all at once, as when the loop was busy.
        void holdUp()
        {
            xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, m_receiver, connection.root(),
                0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
            connection.succeeded(xcb_no_operation_checked(connection.get()));
        }
        /// An event that stands for a copy, in its place among the others.
        void copy()
        {
            xcb_client_message_event_t message {};
            message.response_type = XCB_CLIENT_MESSAGE;
            message.format = 32;
            message.type = m_copyMark;
            xcb_send_event(otherProgram.get(), 0, m_receiver, XCB_EVENT_MASK_NO_EVENT,
                reinterpret_cast<const char*>(&message));
            otherProgram.sync();
        }
        /// Who was in front at the copy, once everything until now has been delivered.
        std::optional<RunningApplication> atTheCopy()
        {
            deliverEvents();
            EXPECT_EQ(m_copies.size(), 1U);
            return m_copies.empty() ? std::nullopt : m_copies.back();
        }

        /// What is in front when the window is.
        std::optional<RunningApplication> whenInFront()
        {
            EXPECT_TRUE(bringToFront(window));
            // The server gives numbers of windows that have gone to new ones: a manager that has not
            // heard yet of the end of an earlier test's window seems to have told of ours.
            waitUntil([&] { return workspace.frontmost().has_value(); });
            return workspace.frontmost();
        }

    private:
        xcb_window_t m_receiver = xcb_generate_id(connection.get());
        xcb_atom_t m_copyMark = connection.atom("KORVANE_TEST_COPY");
        std::vector<std::optional<RunningApplication>> m_copies;
        Connection m_copied = connection.onEvent(XCB_CLIENT_MESSAGE, [this](const auto& event) {
            if (reinterpret_cast<const xcb_client_message_event_t&>(event).type == m_copyMark)
                m_copies.push_back(workspace.frontmost());
        });
    };

    TEST(X11WorkspaceTest, TheApplicationInFrontIsIdentifiedByItsEntry)
    {
        WorkspaceFixture f;
        f.install("org.example.Editor", "Name=Fine Editor\n");
        f.window.setClass("editor", "Editor");

        const auto application = f.whenInFront();

        ASSERT_TRUE(application);
        EXPECT_EQ(application->bundleIdentifier, "org.example.Editor");
        EXPECT_EQ(application->localizedName, "Fine Editor");
        EXPECT_EQ(application->window, f.window.id());
    }

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

    TEST(X11WorkspaceTest, WithoutAnEntryTheClassIsIdentifierAndName)
    {
        WorkspaceFixture f;
        f.window.setClass("gadget", "Gadget");

        const auto application = f.whenInFront();

        ASSERT_TRUE(application);
        EXPECT_EQ(application->bundleIdentifier, "Gadget");
        EXPECT_EQ(application->localizedName, "Gadget");
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

    TEST(X11WorkspaceTest, PasswordManagersAreKnownAsTheBuiltInListNamesThem)
    {
        WorkspaceFixture f;
        f.window.setClass("keepassxc", "KeePassXC");

        EXPECT_EQ(f.whenInFront()->bundleIdentifier, "org.keepassx.keepassxc");
    }

    TEST(X11WorkspaceTest, APasswordManagerUnderAnotherNameIsKnownByTheRest)
    {
        WorkspaceFixture f;
        f.install("com.example.repackaged", "Name=K\nStartupWMClass=KeePassXC\n");
        f.window.setClass("keepassxc", "KeePassXC");

        EXPECT_EQ(f.whenInFront()->bundleIdentifier, "org.keepassx.keepassxc");
    }

    TEST(X11WorkspaceTest, NothingIsInFrontWhenNothingIsActive)
    {
        WorkspaceFixture f;
        ASSERT_TRUE(f.bringToFront(f.window));
        f.window.destroy();

        // Not every manager says so: some leave the number of the window that is gone.
        EXPECT_TRUE(waitUntil([&] { return !f.workspace.frontmost(); }));
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

        ASSERT_TRUE(f.workspace.frontmost());
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

    TEST(X11WorkspaceTest, WhatIsInFrontIsFollowedInTheOrderOfTheEvents)
    {
        WorkspaceFixture f;
        f.window.setClass("first", "First");
        TestWindow second(f.otherProgram);
        second.setClass("second", "Second");
        ASSERT_TRUE(f.bringToFront(second));
        ASSERT_TRUE(f.bringToFront(f.window));

        f.holdUp();
        f.copy();
        f.setActive(second.id());

        EXPECT_EQ(f.atTheCopy()->bundleIdentifier, "First");
        EXPECT_EQ(f.workspace.frontmost()->bundleIdentifier, "Second");
    }

    TEST(X11WorkspaceTest, ACopyBetweenTwoChangesIsJudgedByTheWindowItWasMadeIn)
    {
        WorkspaceFixture f;
        f.window.setClass("keepassxc", "KeePassXC");
        TestWindow editor(f.otherProgram);
        editor.setClass("editor", "Editor");
        ASSERT_TRUE(f.whenInFront());
        ASSERT_TRUE(f.bringToFront(editor));

        f.holdUp();
        f.goTo(f.window);
        f.setActive(f.window.id()); // managers say it twice
        f.copy();
        f.goTo(editor);

        EXPECT_TRUE(f.atTheCopy()->isKnown);
        EXPECT_EQ(f.atTheCopy()->bundleIdentifier, "org.keepassx.keepassxc");
        EXPECT_EQ(f.workspace.frontmost()->bundleIdentifier, "Editor");
    }

    TEST(X11WorkspaceTest, AKeyboardThatIsLentOrGivenToAChildIsStillTheWindows)
    {
        WorkspaceFixture f;
        f.window.setClass("editor", "Editor");
        ASSERT_TRUE(f.whenInFront());
        const auto child = xcb_generate_id(f.otherProgram.get());
        xcb_create_window(f.otherProgram.get(), XCB_COPY_FROM_PARENT, child, f.window.id(), 0, 0, 9,
            9, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_map_window(f.otherProgram.get(), child);

        f.holdUp();
        ASSERT_TRUE(f.holdKeyboard()); // as an open menu does
        xcb_ungrab_keyboard(f.otherProgram.get(), XCB_CURRENT_TIME);
        xcb_set_input_focus(f.otherProgram.get(), XCB_INPUT_FOCUS_PARENT, child, XCB_CURRENT_TIME);
        f.setActive(f.window.id());
        f.copy();
        f.setActive(f.window.id());

        ASSERT_TRUE(f.atTheCopy());
        EXPECT_TRUE(f.atTheCopy()->isKnown);
        EXPECT_EQ(f.atTheCopy()->bundleIdentifier, "Editor");
    }

    TEST(X11WorkspaceTest, ACopyInAWindowThatCameWhileTheLoopWasBusyIsNobodysThatIsKnown)
    {
        WorkspaceFixture f;
        f.window.setClass("editor", "Editor");
        ASSERT_TRUE(f.whenInFront());
        TestWindow late(f.otherProgram);
        late.setClass("keepassxc", "KeePassXC");

        f.holdUp();
        late.map();
        ASSERT_TRUE(waitWithoutDelivering([&] { return late.isActive() && late.hasKeyboard(); }));
        f.copy();
        f.goTo(f.window);

        ASSERT_TRUE(f.atTheCopy());
        EXPECT_FALSE(f.atTheCopy()->isKnown);
        EXPECT_EQ(f.workspace.frontmost()->bundleIdentifier, "Editor");
    }

    TEST(X11WorkspaceTest, ACopyInAWindowThatCameAndWentWhileTheLoopWasBusyIsNobodysThatIsKnown)
    {
        WorkspaceFixture f;
        f.window.setClass("editor", "Editor");
        ASSERT_TRUE(f.whenInFront());
        TestWindow late(f.otherProgram);

        f.holdUp();
        late.map();
        ASSERT_TRUE(waitWithoutDelivering([&] { return late.isActive() && late.hasKeyboard(); }));
        f.copy();
        late.destroy();
        ASSERT_TRUE(waitWithoutDelivering([&] { return f.window.hasKeyboard(); }));

        ASSERT_TRUE(f.atTheCopy());
        EXPECT_FALSE(f.atTheCopy()->isKnown);
        f.deliverEvents();
        EXPECT_EQ(f.workspace.frontmost()->bundleIdentifier, "Editor");
    }

    TEST(X11WorkspaceTest, ACopyInAWindowThatIsGoneIsNobodysThatIsKnown)
    {
        WorkspaceFixture f;
        TestWindow editor(f.otherProgram);
        editor.setClass("editor", "Editor");
        ASSERT_TRUE(f.whenInFront());
        ASSERT_TRUE(f.bringToFront(editor));

        f.holdUp();
        f.goTo(f.window);
        f.copy();
        f.window.destroy();
        f.otherProgram.sync();

        ASSERT_TRUE(f.atTheCopy());
        EXPECT_FALSE(f.atTheCopy()->isKnown);
        EXPECT_TRUE(waitUntil([&] {
            return f.workspace.frontmost() && f.workspace.frontmost()->bundleIdentifier == "Editor";
        }));
    }

    TEST(X11WorkspaceTest, ACopyInAWindowThatIsGoneIsNobodysThatIsKnownAlsoWhereItsNumberStays)
    {
        WorkspaceFixture f;
        ASSERT_TRUE(f.whenInFront());
        const auto vanished = xcb_generate_id(f.otherProgram.get());

        f.holdUp();
        f.setActive(vanished);
        f.copy();
        ASSERT_TRUE(f.atTheCopy());
        EXPECT_FALSE(f.atTheCopy()->isKnown);

        // Whatever is copied later is not its doing.
        EXPECT_EQ(f.workspace.frontmost(), std::nullopt);
    }

    TEST(X11WorkspaceTest, AWindowThatHasJustGoneIsKnownByWhatItWas)
    {
        WorkspaceFixture f;
        f.window.setClass("keepassxc", "KeePassXC");
        ASSERT_TRUE(f.whenInFront());

        f.window.destroy(); // of which nothing has been delivered
        f.otherProgram.sync();
        EXPECT_EQ(f.workspace.frontmost()->bundleIdentifier, "org.keepassx.keepassxc");

        f.deliverEvents();
        EXPECT_EQ(f.workspace.frontmost(), std::nullopt);
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

    TEST(X11WorkspaceTest, AnApplicationIsBroughtBackToTheFront)
    {
        WorkspaceFixture f;
        const auto application = f.whenInFront();
        TestWindow other(f.otherProgram);
        ASSERT_TRUE(f.bringToFront(other));

        f.workspace.activate(*application);

        EXPECT_TRUE(waitUntil([&] { return f.window.isActive() && f.window.hasKeyboard(); }));
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

    TEST(X11WorkspaceTest, ActivatingAWindowThatIsGoneDoesNothing)
    {
        WorkspaceFixture f;
        const auto application = f.whenInFront();
        f.window.destroy();
        TestWindow other(f.otherProgram);
        ASSERT_TRUE(f.bringToFront(other));

        f.workspace.activate(*application);
        f.deliverEvents();

        EXPECT_TRUE(other.isActive());
        EXPECT_TRUE(other.hasKeyboard());
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
