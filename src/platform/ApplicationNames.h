#pragma once

#include "capture/Workspace.h"
#include "platform/xdg/DesktopEntries.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

/// The application behind a window, by what the window tells of its program and the entry that was found
/// for that. A password manager is known by any of its names: one that was packaged under another
/// identifier, or has no entry at all, is still known by the others.
/// @param title  the window's; its last part serves as a name where nothing else does
RunningApplication applicationBehind(
    const ProgramHints& program, const std::optional<DesktopEntry>& entry, std::string_view title);

/// Is it a terminal emulator, by its entry or its class?
bool isTerminal(const ProgramHints& program, const std::optional<DesktopEntry>& entry);

/// The base name of the program file that a process of this machine runs; empty where that is not told.
std::string programName(std::uint32_t process);

} // namespace korvane
