#include "platform/xdg/BaseFolders.h"

#include "support/SmallDisk.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>

namespace korvane {
namespace {

    namespace fs = std::filesystem;
    using test::TempFolder;

    FolderSources sources(std::map<std::string, std::string> variables,
        std::optional<std::string> accountHome = "/home/account")
    {
        return { [variables = std::move(variables)](const char* name) {
                    const auto found = variables.find(name);
                    return found == variables.end() ? std::nullopt : std::optional(found->second);
                },
            [accountHome = std::move(accountHome)] { return accountHome; } };
    }

    TEST(BaseFoldersTest, TheVariablesNameTheFolders)
    {
        const auto folders
            = findBaseFolders(sources({ { "HOME", "/home/me" }, { "XDG_DATA_HOME", "/data" },
                { "XDG_CONFIG_HOME", "/config" }, { "TMPDIR", "/var/tmp" } }));

        ASSERT_TRUE(folders.has_value());
        EXPECT_EQ(folders->dataHome, "/data");
        EXPECT_EQ(folders->configHome, "/config");
        EXPECT_EQ(folders->temporary, "/var/tmp");
    }

    TEST(BaseFoldersTest, WithoutThemTheFoldersLieInTheHomeFolder)
    {
        const auto folders = findBaseFolders(sources({ { "HOME", "/home/me" } }));

        ASSERT_TRUE(folders.has_value());
        EXPECT_EQ(folders->dataHome, "/home/me/.local/share");
        EXPECT_EQ(folders->configHome, "/home/me/.config");
        EXPECT_EQ(folders->temporary, "/tmp");
    }

    TEST(BaseFoldersTest, AnEmptyOrRelativeVariableCountsAsAbsent)
    {
        for (const auto* value : { "", "data", "./data", "~/data" }) {
            const auto folders = findBaseFolders(sources({ { "HOME", "/home/me" },
                { "XDG_DATA_HOME", value }, { "XDG_CONFIG_HOME", value }, { "TMPDIR", value } }));

            ASSERT_TRUE(folders.has_value()) << value;
            EXPECT_EQ(folders->dataHome, "/home/me/.local/share") << value;
            EXPECT_EQ(folders->configHome, "/home/me/.config") << value;
            EXPECT_EQ(folders->temporary, "/tmp") << value;
        }
    }

    TEST(BaseFoldersTest, WithoutHomeTheAccountNamesIt)
    {
        for (const auto& source :
            { sources({}), sources({ { "HOME", "" } }), sources({ { "HOME", "me" } }) }) {
            const auto folders = findBaseFolders(source);

            ASSERT_TRUE(folders.has_value());
            EXPECT_EQ(folders->dataHome, "/home/account/.local/share");
        }
    }

    TEST(BaseFoldersTest, WithoutAnyHomeThereAreNoFolders)
    {
        EXPECT_EQ(findBaseFolders(sources({}, std::nullopt)), std::nullopt);
        EXPECT_EQ(findBaseFolders(sources({ { "HOME", "me" } }, "")), std::nullopt);
        EXPECT_EQ(
            findBaseFolders(sources({ { "XDG_DATA_HOME", "/data" } }, std::nullopt)), std::nullopt);
    }

    TEST(BaseFoldersTest, AHomeIsNotNeededWhereBothFoldersAreNamed)
    {
        const auto folders = findBaseFolders(sources(
            { { "XDG_DATA_HOME", "/data" }, { "XDG_CONFIG_HOME", "/config" } }, std::nullopt));

        ASSERT_TRUE(folders.has_value());
        EXPECT_EQ(folders->configHome, "/config");
    }

    TEST(BaseFoldersTest, TheProcessHasTheVariablesAndTheAccountOfItsUser)
    {
        const auto process = FolderSources::ofProcess();

        ASSERT_EQ(::setenv("KORVANE_TEST_VARIABLE", "value", 1), 0);
        EXPECT_EQ(process.variable("KORVANE_TEST_VARIABLE"), "value");
        ASSERT_EQ(::unsetenv("KORVANE_TEST_VARIABLE"), 0);
        EXPECT_EQ(process.variable("KORVANE_TEST_VARIABLE"), std::nullopt);
        const auto home = process.accountHome();
        ASSERT_TRUE(home.has_value());
        EXPECT_TRUE(home->starts_with('/')) << *home;
    }

    /// The folder in the fallback's place.
    fs::path fallback(const TempFolder& parent)
    {
        return parent.path() / ("korvane-" + std::to_string(::getuid()));
    }

    TEST(BaseFoldersTest, TheRuntimeFolderOfTheSessionIsTaken)
    {
        const TempFolder session;
        const TempFolder parent;

        const auto folder
            = findRuntimeFolder(sources({ { "XDG_RUNTIME_DIR", session.path() } }), parent.path());

        EXPECT_EQ(folder, session.path());
        EXPECT_TRUE(fs::is_empty(parent.path()));
    }

    TEST(BaseFoldersTest, WithoutOneAFolderForTheUserAloneIsMade)
    {
        const TempFolder parent;
        const auto umaskBefore = ::umask(0);

        const auto folder = findRuntimeFolder(sources({}), parent.path());
        ::umask(umaskBefore);

        ASSERT_EQ(folder, fallback(parent));
        EXPECT_EQ(fs::status(*folder).permissions(), fs::perms::owner_all);
        EXPECT_EQ(findRuntimeFolder(sources({}), parent.path()), folder); // and found again
    }

    TEST(BaseFoldersTest, ARuntimeFolderThatDoesNotServeIsPassedOver)
    {
        const TempFolder session;
        const auto missing = session.path() / "missing";
        const auto open = session.path() / "open";
        const auto file = session.path() / "file";
        const auto deep = session.path() / std::string(100, 'd'); // a socket's path is short
        fs::create_directory(open);
        fs::permissions(open, fs::perms::all);
        fs::create_directory(deep);
        std::ofstream(file) << "no folder";

        for (const auto& unfit : { missing, open, file, deep, fs::path("relative") }) {
            const TempFolder parent;

            EXPECT_EQ(findRuntimeFolder(
                          sources({ { "XDG_RUNTIME_DIR", unfit.string() } }), parent.path()),
                fallback(parent))
                << unfit;
        }
    }

    /// Makes the folder another user's: root gives it away; anybody else puts a folder of root's in
    /// its place, for this process alone. False when the system does not let us.
    bool giveAway(const fs::path& folder)
    {
        return ::chown(folder.c_str(), ::getuid() + 1, static_cast<gid_t>(-1)) == 0
            || (test::takeOwnMounts()
                && ::mount("/root", folder.c_str(), nullptr, MS_BIND, nullptr) == 0);
    }

    /// Whether that can be done here; asked in a process of its own.
    bool mayGiveAway()
    {
        const TempFolder folder;
        return test::holdsInChild([&] { return giveAway(folder.path()); });
    }

    TEST(BaseFoldersTest, ARuntimeFolderOfAnotherUserIsPassedOver)
    {
        if (!mayGiveAway())
            GTEST_SKIP() << "neither chown nor a mount is allowed here";
        const TempFolder session;
        const TempFolder parent;

        EXPECT_TRUE(test::holdsInChild([&] {
            return giveAway(session.path())
                && findRuntimeFolder(
                       sources({ { "XDG_RUNTIME_DIR", session.path() } }), parent.path())
                == fallback(parent);
        }));
    }

    TEST(BaseFoldersTest, ALinkOrAnOpenFolderInTheFallbacksPlaceIsRefused)
    {
        const TempFolder parent;
        const TempFolder elsewhere;

        fs::create_directory_symlink(elsewhere.path(), fallback(parent));
        EXPECT_EQ(findRuntimeFolder(sources({}), parent.path()), std::nullopt);
        fs::remove(fallback(parent));
        fs::create_directory(fallback(parent));
        fs::permissions(fallback(parent), fs::perms::all);
        EXPECT_EQ(findRuntimeFolder(sources({}), parent.path()), std::nullopt);
    }

    TEST(BaseFoldersTest, AFallbackOfAnotherUserIsRefused)
    {
        if (!mayGiveAway())
            GTEST_SKIP() << "neither chown nor a mount is allowed here";
        const TempFolder parent;
        fs::create_directory(fallback(parent));
        fs::permissions(fallback(parent), fs::perms::owner_all);

        EXPECT_TRUE(test::holdsInChild([&] {
            return giveAway(fallback(parent))
                && findRuntimeFolder(sources({}), parent.path()) == std::nullopt;
        }));
    }

} // namespace
} // namespace korvane
