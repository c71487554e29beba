#include "platform/PasswordManagers.h"

#include <gtest/gtest.h>

#include <array>

namespace korvane {
namespace {

    TEST(PasswordManagersTest, KeePassXCIsKnownByEachOfItsNames)
    {
        for (const auto name : std::to_array<std::string_view>(
                 { "org.keepassxc.KeePassXC", "KeePassXC", "keepassxc" }))
            EXPECT_EQ(passwordManagerIdentifier(name), "org.keepassx.keepassxc") << name;
    }

    TEST(PasswordManagersTest, OtherProgramsForTheSameDatabasesCountAsKeePassXC)
    {
        for (const auto name : std::to_array<std::string_view>(
                 { "KeePassX", "KeePass2", "KeePass", "org.gnome.World.Secrets" }))
            EXPECT_EQ(passwordManagerIdentifier(name), "org.keepassx.keepassxc") << name;
    }

    TEST(PasswordManagersTest, OnePasswordIsItself)
    {
        EXPECT_EQ(passwordManagerIdentifier("1Password"), "com.agilebits.onepassword7");
    }

    TEST(PasswordManagersTest, LastPassIsItself)
    {
        EXPECT_EQ(passwordManagerIdentifier("LastPass"), "com.lastpass.lastpass");
    }

    TEST(PasswordManagersTest, KeyRingsOfTheDesktopsCountAsTheKeychain)
    {
        for (const auto name : std::to_array<std::string_view>({ "org.gnome.seahorse.Application",
                 "Seahorse", "org.kde.kwalletmanager5", "kwalletmanager" }))
            EXPECT_EQ(passwordManagerIdentifier(name), "com.apple.keychainaccess") << name;
    }

    TEST(PasswordManagersTest, ManagersWithoutANamesakeCountAsTheGeneralOne)
    {
        EXPECT_EQ(passwordManagerIdentifier("Bitwarden"), "com.apple.Passwords");
    }

    TEST(PasswordManagersTest, OtherProgramsAreNone)
    {
        for (const auto name :
            std::to_array<std::string_view>({ "", "xterm", "org.xfce.mousepad", "keepassxc2" }))
            EXPECT_EQ(passwordManagerIdentifier(name), std::nullopt) << name;
    }

} // namespace
} // namespace korvane
