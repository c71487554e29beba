#include "platform/xdg/AutostartEntry.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include <unistd.h>

namespace korvane {
namespace {

    struct AutostartFixture {
        AutostartEntry entry() const { return { file, program }; }
        void write(const std::string& text) const
        {
            std::filesystem::create_directories(file.parent_path());
            std::ofstream(file) << text;
        }
        std::string text() const
        {
            std::ifstream stream(file);
            return { std::istreambuf_iterator<char>(stream), {} };
        }
        bool has(const std::string& line) const
        {
            return ("\n" + text()).find("\n" + line + "\n") != std::string::npos;
        }

        test::TempFolder folder;
        std::filesystem::path file = folder.path() / "config/autostart/com.VNT.Korvane.desktop";
        std::filesystem::path program = "/opt/korvane/bin/korvane";
    };

    TEST(AutostartEntryTest, ALinkToAnEntryThatIsKeptElsewhereStaysALink)
    {
        const AutostartFixture f;
        const auto kept = f.folder.path() / "kept.desktop";
        std::ofstream(kept)
            << "[Desktop Entry]\nType=Application\nName=Mine\nExec=old\nHidden=true\n";
        std::filesystem::create_directories(f.file.parent_path());
        std::filesystem::create_symlink("../../kept.desktop", f.file);

        EXPECT_EQ(f.entry().setEnabled(true), std::nullopt);

        EXPECT_TRUE(std::filesystem::is_symlink(f.file));
        EXPECT_TRUE(f.has("Name=Mine"));
        EXPECT_TRUE(f.entry().isEnabled());
    }

    TEST(AutostartEntryTest, WithoutAnEntryItIsOff)
    {
        const AutostartFixture f;

        EXPECT_FALSE(f.entry().isEnabled());
    }

    TEST(AutostartEntryTest, SwitchedOnThereIsAnEntryThatStartsTheProgram)
    {
        const AutostartFixture f;

        EXPECT_EQ(f.entry().setEnabled(true), std::nullopt);

        EXPECT_TRUE(f.entry().isEnabled());
        EXPECT_TRUE(f.has("[Desktop Entry]"));
        EXPECT_TRUE(f.has("Type=Application"));
        EXPECT_TRUE(f.has("Name=Korvane"));
        EXPECT_TRUE(f.has("Icon=com.VNT.Korvane"));
        EXPECT_TRUE(f.has("Exec=\"/opt/korvane/bin/korvane\""));
    }

    TEST(AutostartEntryTest, SwitchedOffThereIsNoEntry)
    {
        const AutostartFixture f;
        ASSERT_EQ(f.entry().setEnabled(true), std::nullopt);

        EXPECT_EQ(f.entry().setEnabled(false), std::nullopt);

        EXPECT_FALSE(f.entry().isEnabled());
        EXPECT_FALSE(std::filesystem::exists(f.file));
    }

    TEST(AutostartEntryTest, ToSwitchOffWhatIsNotThereIsNoFailure)
    {
        const AutostartFixture f;

        EXPECT_EQ(f.entry().setEnabled(false), std::nullopt);
    }

    TEST(AutostartEntryTest, AHiddenEntryIsOff)
    {
        const AutostartFixture f;
        f.write("[Desktop Entry]\nType=Application\nExec=korvane\nHidden=true\n");

        EXPECT_FALSE(f.entry().isEnabled());
    }

    TEST(AutostartEntryTest, AnEntryThatADesktopHasSwitchedOffIsOff)
    {
        const AutostartFixture f;
        f.write(
            "[Desktop Entry]\nType=Application\nExec=korvane\nX-GNOME-Autostart-enabled=false\n");

        EXPECT_FALSE(f.entry().isEnabled());
    }

    TEST(AutostartEntryTest, AnEntryWithBothSwitchesTheOtherWayIsOn)
    {
        const AutostartFixture f;
        f.write("[Desktop Entry]\nType=Application\nExec=korvane\nHidden=false\n"
                "X-GNOME-Autostart-enabled=true\n");

        EXPECT_TRUE(f.entry().isEnabled());
    }

    TEST(AutostartEntryTest, WhatIsNoEntryIsOffAndIsReplaced)
    {
        const AutostartFixture f;
        for (const auto* text : { "", "no entry at all", "[Other]\nExec=korvane\n" }) {
            f.write(text);
            EXPECT_FALSE(f.entry().isEnabled()) << text;
            EXPECT_EQ(f.entry().setEnabled(true), std::nullopt);
            EXPECT_TRUE(f.entry().isEnabled()) << text;
        }
    }

    TEST(AutostartEntryTest, SwitchedOnAgainItKeepsWhatElseStandsInTheEntry)
    {
        const AutostartFixture f;
        f.write("# mine\n[Desktop Entry]\nType=Application\nName=Clips\nName[de]=Schnipsel\n"
                "Exec=/old/korvane\nHidden=true\nX-GNOME-Autostart-enabled=false\n"
                "X-GNOME-Autostart-Delay=5\n");

        EXPECT_EQ(f.entry().setEnabled(true), std::nullopt);

        EXPECT_TRUE(f.entry().isEnabled());
        EXPECT_TRUE(f.has("# mine"));
        EXPECT_TRUE(f.has("Name=Clips"));
        EXPECT_TRUE(f.has("Name[de]=Schnipsel"));
        EXPECT_TRUE(f.has("X-GNOME-Autostart-Delay=5"));
        EXPECT_TRUE(f.has("Exec=\"/opt/korvane/bin/korvane\""));
    }

    TEST(AutostartEntryTest, AProgramInAFolderWithOddCharactersIsQuoted)
    {
        EXPECT_EQ(quotedForExec("/home/a user/korvane"), "\"/home/a user/korvane\"");
        EXPECT_EQ(quotedForExec(R"(/a"b`c$d\e)"), R"("/a\"b\`c\$d\\e")");
        EXPECT_EQ(quotedForExec("/100%/korvane"), "\"/100%%/korvane\"");
    }

    TEST(AutostartEntryTest, WhatCannotBeWrittenIsToldWithTheReason)
    {
        const AutostartFixture f;
        // A file stands where the folder would be, so that not even the superuser can write there.
        std::filesystem::create_directories(f.file.parent_path().parent_path());
        std::ofstream(f.file.parent_path()) << "in the way";

        const auto failure = f.entry().setEnabled(true);

        ASSERT_TRUE(failure);
        EXPECT_NE(failure->find("com.VNT.Korvane.desktop: "), std::string::npos) << *failure;
        EXPECT_FALSE(f.entry().isEnabled());
    }

} // namespace
} // namespace korvane
