#pragma once

#include "capture/Workspace.h"
#include "support/EventLoop.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace korvane::test {

/// A window of another program, on the screen until its end.
class OtherWindow {
public:
    virtual ~OtherWindow() = default;

    /// The desktop says that it is the one that the user works in.
    virtual bool isActive() = 0;
};

/// The real workspace of the desktop that the test program is for.
class RealWorkspace {
public:
    virtual ~RealWorkspace() = default;

    virtual Workspace& workspace() = 0;
    virtual bool isTerminalInFront() = 0;
    /// Opens a window of a program with this identifier.
    virtual std::unique_ptr<OtherWindow> open(const std::string& identifier) = 0;
    /// Delivers everything that the desktop has told of until now.
    virtual void deliverEvents() = 0;
};
/// @param entries  the folder in which the desktop entries are
std::unique_ptr<RealWorkspace> makeRealWorkspace(const std::filesystem::path& entries);

/// The real workspace, with desktop entries of its own.
class WorkspaceDesk {
public:
    Workspace& workspace() { return m_real->workspace(); }
    RealWorkspace& real() { return *m_real; }
    std::unique_ptr<OtherWindow> open(const std::string& identifier)
    {
        return m_real->open(identifier);
    }

    void install(std::string_view id, std::string_view lines) const
    {
        std::ofstream(m_folder.path() / (std::string(id) + ".desktop"))
            << "[Desktop Entry]\nType=Application\nExec=true\n"
            << lines;
    }
    bool isInFront(std::string_view identifier)
    {
        const auto front = workspace().frontmost();
        return front && front->bundleIdentifier == identifier;
    }
    /// What is in front once it is this application.
    std::optional<RunningApplication> whenInFront(std::string_view identifier)
    {
        EXPECT_TRUE(waitUntil([&] { return isInFront(identifier); })) << identifier;
        return workspace().frontmost();
    }

private:
    TempFolder m_folder;
    std::unique_ptr<RealWorkspace> m_real = makeRealWorkspace(m_folder.path());
};

} // namespace korvane::test
