#include "platform/PasswordManagers.h"

#include <algorithm>
#include <array>

namespace korvane {
namespace {

    struct Row {
        std::string_view programName; // in lower case
        std::string_view identifier;
    };

    // The built-in list names the password managers of another desktop. Each program here stands
    // for the one of them that is the same product, or else plays the same part. All the names that
    // a program goes by are listed, because what a window tells depends on how it was packaged.
    constexpr std::string_view keePass = "org.keepassx.keepassxc";
    constexpr std::string_view onePassword = "com.agilebits.onepassword7";
    constexpr std::string_view olderOnePassword = "com.agilebits.onepassword-osx";
    constexpr std::string_view lastPass = "com.lastpass.lastpass";
    constexpr std::string_view keychain = "com.apple.keychainaccess";
    constexpr std::string_view passwords = "com.apple.Passwords";

    constexpr auto rows = std::to_array<Row>({
        // KeePassXC itself: the same product.
        { "org.keepassxc.keepassxc", keePass },
        { "keepassxc", keePass },
        // Its ancestors and the other programs for the same kind of database.
        { "keepassx", keePass },
        { "keepassx2", keePass },
        { "org.keepassx.keepassx", keePass },
        { "keepass", keePass },
        { "keepass2", keePass },
        { "net.keepass.keepass2", keePass },
        { "keeweb", keePass },
        { "net.keeweb.keeweb", keePass },
        { "app.keeweb.keeweb", keePass },
        // GNOME Secrets (Password Safe, as it was first called) opens KeePass databases too.
        { "org.gnome.world.secrets", keePass },
        { "org.gnome.passwordsafe", keePass },
        { "gnome-passwordsafe", keePass },
        { "secrets", keePass },

        // 1Password: the same product.
        { "1password", onePassword },
        { "com.onepassword.onepassword", onePassword },
        { "com.1password.1password", onePassword },
        // The version for a browser's application mode, which came before.
        { "1password-x", olderOnePassword },

        // LastPass: the same product.
        { "lastpass", lastPass },
        { "com.lastpass.lastpass", lastPass },

        // The desktops' own key rings show what the system keeps.
        { "org.gnome.seahorse.application", keychain },
        { "org.gnome.seahorse", keychain },
        { "seahorse", keychain },
        { "org.kde.kwalletmanager5", keychain },
        { "org.kde.kwalletmanager", keychain },
        { "kwalletmanager5-kwalletd", keychain },
        { "kwalletmanager5", keychain },
        { "kwalletmanager", keychain },

        // Password managers that the list has no namesake for count as the general one.
        { "bitwarden", passwords },
        { "com.bitwarden.desktop", passwords },
        { "proton pass", passwords },
        { "proton-pass", passwords },
        { "me.proton.pass", passwords },
        { "enpass", passwords },
        { "io.enpass.enpass", passwords },
        { "buttercup", passwords },
        { "buttercup-desktop", passwords },
        { "com.pcloud.pass", passwords },
        { "nordpass", passwords },
        { "dashlane", passwords },
        { "qtpass", passwords },
        { "org.ijhack.qtpass", passwords },
    });

    bool equalWithoutCase(std::string_view text, std::string_view lowerCase)
    {
        const auto lower
            = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
        return std::ranges::equal(text, lowerCase, {}, lower);
    }

} // namespace

std::optional<std::string_view> passwordManagerIdentifier(std::string_view programName)
{
    const auto row = std::ranges::find_if(
        rows, [&](const Row& each) { return equalWithoutCase(programName, each.programName); });
    return row == rows.end() ? std::nullopt : std::optional(row->identifier);
}

} // namespace korvane
