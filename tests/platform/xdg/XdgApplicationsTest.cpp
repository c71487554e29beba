#include "platform/xdg/XdgApplications.h"

#include "platform/qt/QtMainLoop.h"
#include "support/EventLoop.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {
namespace {

    namespace fs = std::filesystem;

    /// The user's own folder of entries, two of the system's, and one that does not exist.
    struct ApplicationsFixture {
        test::TempFolder temp;
        QtMainLoop loop;
        DesktopEntries entries { loop, { user(), local(), system(), temp.path() / "nowhere" } };
        XdgApplications applications { entries };

        fs::path user() const { return temp.path() / "user" / "applications"; }
        fs::path local() const { return temp.path() / "local" / "applications"; }
        fs::path system() const { return temp.path() / "system" / "applications"; }

        ApplicationsFixture()
        {
            for (const auto& folder : { user(), local(), system() })
                fs::create_directories(folder);
        }
        static std::string write(
            const fs::path& file, std::string_view lines, std::string_view type = "Application")
        {
            fs::create_directories(file.parent_path());
            std::ofstream(file) << "[Desktop Entry]\nType=" << type << '\n' << lines;
            return file.string();
        }
        std::string install(
            std::string_view id, std::string_view lines = "Name=Program\nExec=true\n") const
        {
            return write(system() / (std::string(id) + ".desktop"), lines);
        }
    };

    TEST(XdgApplicationsTest, AnApplicationIsFoundByItsIdentifier)
    {
        ApplicationsFixture f;
        const auto file
            = f.install("org.example.Files", "Name=Files\nExec=true\nIcon=folder-open\n");

        EXPECT_EQ(f.applications.find("org.example.Files"),
            (Application { "org.example.Files", "Files", "folder-open", file }));
        EXPECT_EQ(f.applications.find("org.example.files"), std::nullopt); // case matters
        EXPECT_EQ(f.applications.find(""), std::nullopt);
    }

    TEST(XdgApplicationsTest, TheNameIsInTheUsersLanguage)
    {
        ApplicationsFixture f;
        f.install("files", "Name=Files\nName[de]=Dateien\nExec=true\n");
        const std::string before = qEnvironmentVariable("LANGUAGE").toStdString();

        qputenv("LANGUAGE", "de");
        const auto application = f.applications.find("files");
        qputenv("LANGUAGE", QByteArray::fromStdString(before));

        ASSERT_TRUE(application);
        EXPECT_EQ(application->name, "Dateien");
    }

    TEST(XdgApplicationsTest, AnApplicationThatMenusDoNotShowHasItsNameAndIsNotOffered)
    {
        ApplicationsFixture f;
        f.install("shown");
        f.install("handler", "Name=Handler\nExec=true\nNoDisplay=true\n");

        const auto installed = f.applications.installed();

        ASSERT_EQ(installed.size(), 1U);
        EXPECT_EQ(installed[0].identifier, "shown");
        ASSERT_TRUE(f.applications.find("handler"));
        EXPECT_EQ(f.applications.find("handler")->name, "Handler");
    }

    TEST(XdgApplicationsTest, AFileIsReadWhereverItLies)
    {
        ApplicationsFixture f;
        const auto file = f.write(f.temp.path() / "downloads" / "org.example.Tool.desktop",
            "Name=Tool\nExec=true\nIcon=/pictures/tool.png\n");

        EXPECT_EQ(f.applications.read(file),
            (Application { "org.example.Tool", "Tool", "/pictures/tool.png", file }));
    }

    TEST(XdgApplicationsTest, AFileInASubfolderHasTheIdentifierThatItsWindowsHave)
    {
        ApplicationsFixture f;
        const auto file = f.install("kde/writer");

        ASSERT_TRUE(f.applications.read(file));
        EXPECT_EQ(f.applications.read(file)->identifier, "kde-writer");
        EXPECT_TRUE(f.applications.find("kde-writer"));
    }

    TEST(XdgApplicationsTest, APasswordManagerGoesByTheIdentifierOfTheBuiltInList)
    {
        ApplicationsFixture f;
        const auto file = f.install("org.keepassxc.KeePassXC", "Name=KeePassXC\nExec=true\n");

        ASSERT_TRUE(f.applications.read(file));
        EXPECT_EQ(f.applications.read(file)->identifier, "org.keepassx.keepassxc");
    }

    TEST(XdgApplicationsTest, WhatIsNoApplicationIsNotRead)
    {
        ApplicationsFixture f;
        const auto link
            = f.write(f.system() / "link.desktop", "Name=Link\nURL=https://example.org/\n", "Link");
        const auto folder = f.write(f.system() / "folder.desktop", "Name=Folder\n", "Directory");
        const auto nameless = f.write(f.temp.path() / ".desktop", "Name=Nameless\nExec=true\n");
        const auto hidden = f.install("hidden", "Name=Hidden\nExec=true\nHidden=true\n");
        const auto text = f.write(f.system() / "program.txt", "Name=Text\nExec=true\n");
        std::ofstream(f.system() / "noise.desktop") << std::string(4096, '\xFF');
        fs::create_directory(f.system() / "directory.desktop");

        for (const auto& file :
            { link, folder, nameless, hidden, text, (f.system() / "noise.desktop").string(),
                (f.system() / "directory.desktop").string(),
                (f.system() / "nowhere.desktop").string(), std::string() })
            EXPECT_EQ(f.applications.read(file), std::nullopt) << file;
    }

    TEST(XdgApplicationsTest, TheFoldersBeginWithTheFullestOfTheSystems)
    {
        ApplicationsFixture f;
        f.install("one");
        f.install("two");
        f.write(f.local() / "three.desktop", "Name=Three\nExec=true\n");
        for (const char* const id : { "a", "b", "c" })
            f.write(f.user() / (std::string(id) + ".desktop"), "Name=Own\nExec=true\n");

        EXPECT_EQ(f.applications.folders(),
            (std::vector { f.system().string(), f.user().string(), f.local().string() }));
    }

    TEST(XdgApplicationsTest, WhatIsInstalledOrRemovedLaterIsTold)
    {
        ApplicationsFixture f;
        int changes = 0;
        const auto connection = f.applications.changed.connect([&] { ++changes; });
        EXPECT_EQ(f.applications.find("late"), std::nullopt);

        f.install("late");
        EXPECT_TRUE(test::waitUntil([&] { return changes > 0 && f.applications.find("late"); }));
        changes = 0;
        fs::remove(f.system() / "late.desktop");
        EXPECT_TRUE(test::waitUntil([&] { return changes > 0 && !f.applications.find("late"); }));
    }

} // namespace
} // namespace korvane
