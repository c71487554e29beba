#include "platform/wayland/WaylandWorkspace.h"

#include "platform/qt/QtMainLoop.h"
#include "platform/wayland/WaylandClient.h"
#include "platform/wayland/WaylandPasteboard.h"
#include "support/EventLoop.h"
#include "support/SelectionOwner.h"

#include <gtest/gtest.h>

#include <optional>
#include <string_view>
#include <utility>

namespace korvane {
namespace {

    using test::waitUntil;
    using test::WaylandClient;
    using test::WaylandPanel;
    using test::WaylandWindow;

    /// A workspace that looks at a real desktop, on which another program has windows.
    struct WindowDesk {
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

        QtMainLoop loop;
        WaylandConnection connection { loop };
        DesktopEntries entries { loop, {} };
        bool isPanelOpen = false;
        WaylandWorkspace workspace { connection, entries, [this] { return isPanelOpen; } };
        WaylandClient otherProgram;
    };

    TEST(WaylandWorkspaceTest, AWindowThatWasThereBeforeIsKnown)
    {
        WaylandClient earlier;
        WaylandWindow window(earlier, "org.example.Earlier");
        ASSERT_TRUE(waitUntil([&] { return window.isActive(); }));

        WindowDesk desk;

        EXPECT_TRUE(waitUntil([&] { return desk.isInFront("org.example.Earlier"); }));
    }

    TEST(WaylandWorkspaceTest, TheApplicationBehindOurPanelStaysTheOneInFront)
    {
        WindowDesk desk;
        WaylandWindow window(desk.otherProgram, "org.keepassxc.KeePassXC");
        ASSERT_TRUE(desk.whenInFront("org.keepassx.keepassxc"));

        desk.isPanelOpen = true;
        WaylandClient ours;
        std::optional<WaylandPanel> panel(std::in_place, ours);
        desk.deliverEvents();
        desk.deliverEvents();

        EXPECT_TRUE(desk.isInFront("org.keepassx.keepassxc"));
        panel.reset();
        desk.isPanelOpen = false; // before the window is told to be active again
        EXPECT_TRUE(desk.isInFront("org.keepassx.keepassxc"));
        EXPECT_TRUE(waitUntil([&] { return window.isActive(); }));
        desk.deliverEvents();
        EXPECT_TRUE(desk.isInFront("org.keepassx.keepassxc"));
    }

    TEST(WaylandWorkspaceTest, AnApplicationComesBackFromOurPanel)
    {
        WindowDesk desk;
        WaylandWindow window(desk.otherProgram, "editor");
        const auto application = desk.whenInFront("editor");
        desk.isPanelOpen = true;
        {
            WaylandClient ours;
            const WaylandPanel panel(ours);
            desk.deliverEvents();
        }
        desk.isPanelOpen = false;

        desk.workspace.activate(*application);

        EXPECT_TRUE(waitUntil([&] { return window.isActive() && desk.isInFront("editor"); }));
    }

    TEST(WaylandWorkspaceTest, AChangeThatARoundTripHearsOfIsToldOnTheNextTurn)
    {
        WindowDesk desk;
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

    TEST(WaylandWorkspaceTest, ACopyIsToldWhileTheWindowIsInFrontThatItWasMadeIn)
    {
        WindowDesk desk;
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
