#pragma once

#include "model/Alerts.h"

#include <string_view>

namespace korvane {

/// Every text of the Privacy page and of what opens from it.
namespace privacytexts {
    inline constexpr std::string_view automaticallyIgnored = "Automatically ignored apps";
    inline constexpr std::string_view passwordManagers
        = "Passwords, 1Password, LastPass, KeePassXC, Keychain Access";
    inline constexpr std::string_view neverSavePasswords = "Never save password fields";
    inline constexpr std::string_view alwaysEnabled = "This option is always enabled.";

    inline constexpr std::string_view ignoredApps = "Ignored apps";
    inline constexpr std::string_view explanation
        = "Korvane will not save anything copied from these apps.";
    inline constexpr std::string_view noApps = "No apps added";
    inline constexpr std::string_view unknownApp = "Unknown app";
    inline constexpr std::string_view addToolTip = "Add app from /Applications";
    inline constexpr std::string_view removeToolTip = "Remove selected app";

    /// Short, as it has to go into the frame of a small window.
    inline constexpr std::string_view chooserTitle = "Choose an app";
    inline constexpr std::string_view chooserMessage
        = "Choose an app whose copies Korvane should ignore.";
    inline constexpr std::string_view chooserPrompt = "Add";
    inline constexpr std::string_view chooserCancel = "Cancel";
    inline constexpr std::string_view chooserOther = "Other…";
    inline constexpr std::string_view chooserSearch = "Search";
    /// The name of the list for assistive technology.
    inline constexpr std::string_view chooserList = "Installed apps";
    inline constexpr std::string_view chooserNothing = "No apps found";
    /// The kinds of files of the file dialog.
    inline constexpr std::string_view chooserFiles = "Apps (*.desktop)";

    inline Alert couldNotRead()
    {
        return { "Could not read app bundle",
            "The selected item does not appear to be a valid macOS application.", { "OK" } };
    }
} // namespace privacytexts

} // namespace korvane
