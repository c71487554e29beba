#include "platform/wayland/WaylandWorkspace.h"

#include "platform/qt/QtMainLoop.h"
#include "platform/wayland/WaylandClient.h"
#include "platform/wayland/WaylandPasteboard.h"
#include "support/EventLoop.h"
#include "support/SelectionOwner.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {
namespace {

    using test::waitUntil;
    using test::WaylandClient;
    using test::WaylandWindow;

    /// A workspace that looks at a real desktop, on which another program has windows.
    struct WorkspaceDesk {
        void install(std::string_view id, std::string_view lines) const
        {
            std::ofstream(folder.path() / (std::string(id) + ".desktop"))
                << "[Desktop Entry]\nType=Application\nExec=true\n"
                << lines;
        }
        /// Waits until a window of this program is in front.
        std::optional<RunningApplication> whenInFront(std::string_view identifier)
        {
            EXPECT_TRUE(waitUntil([&] { return isInFront(identifier); })) << identifier;
            return workspace.frontmost();
        }
        bool isInFront(std::string_view identifier)
        {
            otherProgram.listen();
            const auto front = workspace.frontmost();
            return front && front->bundleIdentifier == identifier;
        }
        /// Has everything that has happened until now delivered.
        void deliverEvents()
        {
            otherProgram.sync();
            connection.roundTrip();
            connection.roundTrip();
            bool isDelivered = false;
            loop.post([&] { isDelivered = true; });
            waitUntil([&] { return isDelivered; });
        }

        test::TempFolder folder;
        QtMainLoop loop;
        WaylandConnection connection { loop };
        DesktopEntries entries { loop, { folder.path() } };
        bool isPanelOpen = false;
        WaylandWorkspace workspace { connection, entries, [this] { return isPanelOpen; } };
        WaylandClient otherProgram;
    };

    TEST(WaylandWorkspaceTest, TheApplicationInFrontIsIdentifiedByItsEntry)
    {
        WorkspaceDesk desk;
        desk.install("org.example.Editor", "Name=Fine Editor\n");
        ASSERT_TRUE(desk.workspace.isAvailable());

        const WaylandWindow window(desk.otherProgram, "org.example.Editor", "letter");
        const auto application = desk.whenInFront("org.example.Editor");

        ASSERT_TRUE(application);
        EXPECT_EQ(application->localizedName, "Fine Editor");
        EXPECT_TRUE(application->isKnown);
        EXPECT_NE(application->window, 0U);
    }

    TEST(WaylandWorkspaceTest, AWindowThatWasThereBeforeIsKnown)
    {
        WaylandClient earlier;
        WaylandWindow window(earlier, "org.example.Earlier");
        ASSERT_TRUE(waitUntil([&] { return window.isActive(); }));

        WorkspaceDesk desk;

        EXPECT_TRUE(waitUntil([&] { return desk.isInFront("org.example.Earlier"); }));
    }

    TEST(WaylandWorkspaceTest, WithoutAnEntryTheApplicationsIdentifierIsItsName)
    {
        WorkspaceDesk desk;

        const WaylandWindow window(desk.otherProgram, "Gadget");

        EXPECT_EQ(desk.whenInFront("Gadget")->localizedName, "Gadget");
    }

    TEST(WaylandWorkspaceTest, PasswordManagersAreKnownAsTheBuiltInListNamesThem)
    {
        WorkspaceDesk desk;

        const WaylandWindow window(desk.otherProgram, "org.keepassxc.KeePassXC");

        EXPECT_TRUE(desk.whenInFront("org.keepassx.keepassxc"));
    }

    TEST(WaylandWorkspaceTest, NothingIsInFrontWhenTheLastWindowHasGone)
    {
        WorkspaceDesk desk;
        {
            const WaylandWindow window(desk.otherProgram, "only");
            ASSERT_TRUE(desk.whenInFront("only"));
        }

        EXPECT_TRUE(waitUntil([&] { return !desk.workspace.frontmost(); }));
    }

    TEST(WaylandWorkspaceTest, AnApplicationIsBroughtBackToTheFront)
    {
        WorkspaceDesk desk;
        WaylandWindow first(desk.otherProgram, "first");
        const auto application = desk.whenInFront("first");
        WaylandWindow second(desk.otherProgram, "second");
        ASSERT_TRUE(desk.whenInFront("second"));

        desk.workspace.activate(*application);

        EXPECT_TRUE(desk.whenInFront("first"));
        EXPECT_TRUE(waitUntil([&] { return first.isActive(); }));
    }

    TEST(WaylandWorkspaceTest, ActivatingAWindowThatIsGoneDoesNothing)
    {
        WorkspaceDesk desk;
        std::optional<RunningApplication> gone;
        {
            const WaylandWindow window(desk.otherProgram, "gone");
            gone = desk.whenInFront("gone");
        }
        WaylandWindow other(desk.otherProgram, "other");
        ASSERT_TRUE(desk.whenInFront("other"));

        desk.workspace.activate(*gone);
        desk.deliverEvents();

        EXPECT_TRUE(desk.isInFront("other"));
        EXPECT_TRUE(desk.connection.isOpen());
    }

    TEST(WaylandWorkspaceTest, AChangeThatARoundTripHearsOfIsToldOnTheNextTurn)
    {
        WorkspaceDesk desk;
        const WaylandWindow first(desk.otherProgram, "first");
        ASSERT_TRUE(desk.whenInFront("first"));

        WaylandWindow second(desk.otherProgram, "second");
        // Without a turn of the loop: who waits for the compositor is not told in the middle of it.
        for (int tries = 0; tries < 1000 && !second.isActive(); ++tries)
            desk.connection.roundTrip();
        desk.connection.roundTrip();
        const bool isStillFirst = desk.isInFront("first");

        EXPECT_TRUE(isStillFirst);
        EXPECT_TRUE(desk.whenInFront("second"));
    }

    TEST(WaylandWorkspaceTest, ATerminalIsKnownByItsEntryOrItsIdentifier)
    {
        WorkspaceDesk desk;
        desk.install("blackscreen", "Name=Black Screen\nCategories=System;TerminalEmulator;\n");

        const WaylandWindow byEntry(desk.otherProgram, "blackscreen");
        EXPECT_TRUE(desk.whenInFront("blackscreen"));
        EXPECT_TRUE(desk.workspace.isTerminalInFront());
        const WaylandWindow byName(desk.otherProgram, "foot");
        EXPECT_TRUE(desk.whenInFront("foot"));
        EXPECT_TRUE(desk.workspace.isTerminalInFront());
        const WaylandWindow editor(desk.otherProgram, "editor");
        EXPECT_TRUE(desk.whenInFront("editor"));
        EXPECT_FALSE(desk.workspace.isTerminalInFront());
    }

    TEST(WaylandWorkspaceTest, ACopyIsToldWhileTheWindowIsInFrontThatItWasMadeIn)
    {
        WorkspaceDesk desk;
        WaylandPasteboard pasteboard(desk.connection, desk.loop,
            { [&] { return desk.workspace.frontWindow(); },
                [&](std::uint64_t window) { return desk.workspace.isThere(window); } });
        const WaylandWindow manager(desk.otherProgram, "org.keepassxc.KeePassXC");
        ASSERT_TRUE(desk.whenInFront("org.keepassx.keepassxc"));
        std::optional<RunningApplication> atTheCopy;
        const auto onChange
            = pasteboard.changed.connect([&] { atTheCopy = desk.workspace.frontmost(); });

        // All of it lies there at once when the loop turns, as when it was busy.
        const test::SelectionOwner owner(
            { .offers = { { .target = "UTF8_STRING", .bytes = "pass word" } } });
        const WaylandWindow editor(desk.otherProgram, "editor");
        ASSERT_TRUE(desk.whenInFront("editor"));

        ASSERT_TRUE(atTheCopy);
        EXPECT_EQ(atTheCopy->bundleIdentifier, "org.keepassx.keepassxc");
    }

} // namespace
} // namespace korvane
