#pragma once

#include "X11Desk.h"
#include "platform/x11/X11OutsideClicks.h"
#include "platform/x11/X11Workspace.h"
#include "platform/xdg/DesktopEntries.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <optional>
#include <string>
#include <string_view>

namespace korvane::test {

/// A workspace that looks at a real desktop, on which another program has a window.
struct WorkspaceFixture : X11Desk {
    TempFolder folder;
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
        xcb_set_input_focus(otherProgram.get(), XCB_INPUT_FOCUS_PARENT, to.id(), XCB_CURRENT_TIME);
        setActive(to.id());
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
};

} // namespace korvane::test
