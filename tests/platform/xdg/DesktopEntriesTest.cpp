#include "platform/xdg/DesktopEntries.h"

#include "platform/qt/QtMainLoop.h"
#include "support/EventLoop.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {
namespace {

    /// Two folders of entries, the user's own and the system's.
    struct EntriesFixture {
        test::TempFolder temp;
        QtMainLoop loop;
        DesktopEntries entries { loop, { user(), system() } };

        std::filesystem::path user() const { return temp.path() / "user" / "applications"; }
        std::filesystem::path system() const { return temp.path() / "system" / "applications"; }

        /// Writes an entry; "sh" stands in for a program that is installed.
        static void write(const std::filesystem::path& file, std::string_view lines)
        {
            std::filesystem::create_directories(file.parent_path());
            std::ofstream(file) << "[Desktop Entry]\nType=Application\n" << lines;
        }
        void install(
            std::string_view id, std::string_view lines = "Name=Program\nExec=true\n") const
        {
            write(system() / (std::string(id) + ".desktop"), lines);
        }
        std::optional<std::string> idOf(const ProgramHints& hints)
        {
            const auto entry = entries.find(hints);
            return entry ? std::optional(entry->id) : std::nullopt;
        }
    };

    TEST(DesktopEntriesTest, TheEntryThatTheProgramNamesComesFirst)
    {
        EntriesFixture f;
        f.install("org.example.Named");
        f.install("org.example.Gtk");

        EXPECT_EQ(
            f.idOf({ .desktopFile = "org.example.Named", .applicationId = "org.example.Gtk" }),
            "org.example.Named");
        EXPECT_EQ(f.idOf({ .desktopFile = "/usr/share/applications/org.example.Named.desktop" }),
            "org.example.Named");
    }

    TEST(DesktopEntriesTest, TheApplicationIdentifierIsAnEntrysIdentifier)
    {
        EntriesFixture f;
        f.install("org.example.Editor");
        f.install("other", "Name=Other\nExec=true\nStartupWMClass=Editor\n");

        EXPECT_EQ(f.idOf({ .applicationId = "org.example.Editor", .windowClass = "Editor" }),
            "org.example.Editor");
    }

    TEST(DesktopEntriesTest, AnApplicationIdentifierWithoutAnEntryIsPassedOver)
    {
        EntriesFixture f;
        f.install("thunar");

        EXPECT_EQ(
            f.idOf({ .applicationId = "org.xfce.Thunar", .windowClass = "Thunar" }), "thunar");
    }

    TEST(DesktopEntriesTest, TheStartupClassIsComparedWithTheClassBeforeTheInstance)
    {
        EntriesFixture f;
        f.install("by-class", "Name=A\nExec=true\nStartupWMClass=Browser\n");
        f.install("by-instance", "Name=B\nExec=true\nStartupWMClass=browser\n");

        EXPECT_EQ(f.idOf({ .windowClass = "Browser", .windowInstance = "browser" }), "by-class");
        EXPECT_EQ(f.idOf({ .windowClass = "Unknown", .windowInstance = "browser" }), "by-instance");
    }

    TEST(DesktopEntriesTest, TheStartupClassIsFoundWithoutRegardToCase)
    {
        EntriesFixture f;
        f.install("chromium", "Name=Chromium\nExec=true\nStartupWMClass=chromium\n");

        EXPECT_EQ(f.idOf({ .windowClass = "Chromium", .windowInstance = "page.html" }), "chromium");
    }

    TEST(DesktopEntriesTest, AnEntryCalledLikeTheClassIsFound)
    {
        EntriesFixture f;
        f.install("featherpad");

        EXPECT_EQ(f.idOf({ .windowClass = "FeatherPad" }), "featherpad");
    }

    TEST(DesktopEntriesTest, TheLastPartOfAnIdentifierIsComparedWithTheClass)
    {
        EntriesFixture f;
        f.install("org.example.Painter");
        f.install("distribution-writer");

        EXPECT_EQ(f.idOf({ .windowClass = "Painter" }), "org.example.Painter");
        EXPECT_EQ(f.idOf({ .windowClass = "Writer" }), "distribution-writer");
    }

    TEST(DesktopEntriesTest, TheProgramFileIsTheLastResort)
    {
        EntriesFixture f;
        f.install("tool", "Name=Tool\nExec=/bin/true --window %U\n");

        EXPECT_EQ(f.idOf({ .windowClass = "Unknown", .executable = "true" }), "tool");
    }

    TEST(DesktopEntriesTest, AProgramThatStartsOthersSaysNothing)
    {
        EntriesFixture f;
        f.install("script", "Name=Script\nExec=sh -c true\n");

        EXPECT_EQ(f.idOf({ .executable = "sh" }), std::nullopt);
    }

    TEST(DesktopEntriesTest, NothingFitsEmptyHints)
    {
        EntriesFixture f;
        f.install("program");

        EXPECT_EQ(f.idOf({}), std::nullopt);
    }

    TEST(DesktopEntriesTest, TheProgramComesBeforeItsSettingsDialogue)
    {
        EntriesFixture f;
        f.install("org.example.pad-settings", "Name=S\nExec=true\nStartupWMClass=Pad\n");
        f.install("org.example.pad", "Name=P\nExec=true\nStartupWMClass=Pad\n");
        f.install("a-pad", "Name=H\nExec=true\nStartupWMClass=Pad\nNoDisplay=true\n");

        EXPECT_EQ(f.idOf({ .windowClass = "Pad" }), "org.example.pad");
    }

    TEST(DesktopEntriesTest, TheUsersEntryComesBeforeTheSystems)
    {
        EntriesFixture f;
        f.install("editor", "Name=System's\nExec=true\n");
        EntriesFixture::write(f.user() / "editor.desktop", "Name=User's\nExec=true\n");

        EXPECT_EQ(f.entries.find({ .windowClass = "editor" })->name, "User's");
    }

    TEST(DesktopEntriesTest, AnEntryThatTheUserHidesIsGone)
    {
        EntriesFixture f;
        f.install("editor");
        EntriesFixture::write(f.user() / "editor.desktop", "Name=E\nExec=true\nHidden=true\n");

        EXPECT_EQ(f.idOf({ .windowClass = "editor" }), std::nullopt);
    }

    TEST(DesktopEntriesTest, AnEntryInASubfolderIsNamedByItsWay)
    {
        EntriesFixture f;
        f.install("kde/writer");

        EXPECT_EQ(f.idOf({ .desktopFile = "kde-writer" }), "kde-writer");
    }

    TEST(DesktopEntriesTest, TheNameIsInTheUsersLanguage)
    {
        EntriesFixture f;
        f.install("files", "Name=Files\nName[de]=Dateien\nExec=true\n");
        const std::string before = qEnvironmentVariable("LANGUAGE").toStdString();

        qputenv("LANGUAGE", "de");
        const auto entry = f.entries.find({ .windowClass = "files" });
        qputenv("LANGUAGE", QByteArray::fromStdString(before));

        EXPECT_EQ(entry->name, "Dateien");
    }

    TEST(DesktopEntriesTest, TerminalsAreKnownByTheirCategory)
    {
        EntriesFixture f;
        f.install("term", "Name=T\nExec=true\nCategories=System;TerminalEmulator;\n");
        f.install("pad", "Name=P\nExec=true\nCategories=Utility;NotATerminalEmulator;\n");

        EXPECT_TRUE(f.entries.find({ .windowClass = "term" })->isTerminal);
        EXPECT_FALSE(f.entries.find({ .windowClass = "pad" })->isTerminal);
    }

    TEST(DesktopEntriesTest, AnApplicationThatIsInstalledLaterIsFound)
    {
        EntriesFixture f;
        EXPECT_EQ(f.idOf({ .windowClass = "late" }), std::nullopt);

        f.install("late");

        EXPECT_TRUE(test::waitUntil([&] { return f.idOf({ .windowClass = "late" }) == "late"; }));
    }

    TEST(DesktopEntriesTest, AnApplicationThatIsRemovedIsForgotten)
    {
        EntriesFixture f;
        f.install("gone");
        EXPECT_EQ(f.idOf({ .windowClass = "gone" }), "gone");

        std::filesystem::remove(f.system() / "gone.desktop");

        EXPECT_TRUE(test::waitUntil([&] { return !f.idOf({ .windowClass = "gone" }); }));
    }

    TEST(DesktopEntriesTest, FilesThatAreNoEntriesAreLeftOut)
    {
        EntriesFixture f;
        f.install("good");
        std::ofstream(f.system() / "noise.desktop") << std::string(4096, '\xFF');
        std::ofstream(f.system() / "empty.desktop").flush();
        std::filesystem::create_directory(f.system() / "folder.desktop");

        EXPECT_EQ(f.idOf({ .windowClass = "noise" }), std::nullopt);
        EXPECT_EQ(f.idOf({ .windowClass = "good" }), "good");
    }

    TEST(DesktopEntriesTest, TheStandardFoldersEndWithThoseOfPackagesOfOtherKinds)
    {
        const auto folders = DesktopEntries::standardFolders();

        for (const std::string_view folder : { "/var/lib/flatpak/exports/share/applications",
                 "/var/lib/snapd/desktop/applications" })
            EXPECT_EQ(std::ranges::count(folders, std::filesystem::path(folder)), 1) << folder;
    }

    TEST(DesktopEntriesTest, TheStandardFoldersBeginWithTheUsers)
    {
        const auto folders = DesktopEntries::standardFolders();

        ASSERT_GE(folders.size(), 2U);
        EXPECT_EQ(folders.front().filename(), "applications");
        EXPECT_EQ(folders.front().parent_path().string(),
            qEnvironmentVariable("XDG_DATA_HOME").toStdString());
    }

} // namespace
} // namespace korvane
