#pragma once

#include "settings/LoginItem.h"

#include <filesystem>

namespace korvane {

/// The program's entry among those that the desktop starts at login, after the Desktop Application
/// Autostart Specification (freedesktop): a file in the folder "autostart" of the user's configuration.
class AutostartEntry : public LoginItem {
public:
    /// @param file     the entry
    /// @param program  the file to be started, by its whole path
    AutostartEntry(std::filesystem::path file, std::filesystem::path program);

    /// Whether there is such an entry and it is not switched off: by `Hidden`, as every
    /// desktop has it, or by `X-GNOME-Autostart-enabled`, as some desktops' own settings do.
    bool isEnabled() const override;
    /// Whatever else stands in an entry that is there is kept when it is switched on; it is removed when
    /// it is switched off.
    std::optional<std::string> setEnabled(bool isEnabled) override;

private:
    std::optional<std::string> write() const;
    std::optional<std::string> remove() const;

    std::filesystem::path m_file;
    std::filesystem::path m_program;
};

/// An argument of the entry's command line, quoted as the Desktop Entry Specification asks.
std::string quotedForExec(const std::string& argument);

} // namespace korvane
