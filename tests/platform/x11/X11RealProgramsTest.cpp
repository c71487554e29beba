// The desktop's side as real programs see it: whether they are known, and whether what is typed
// into them arrives.
#include "X11Desk.h"
#include "platform/x11/X11Keyboard.h"
#include "platform/x11/X11OutsideClicks.h"
#include "platform/x11/X11RawInput.h"
#include "platform/x11/X11Workspace.h"
#include "platform/xdg/DesktopEntries.h"
#include "support/Program.h"
#include "support/TempFolder.h"

#include <QClipboard>
#include <QGuiApplication>

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>

namespace korvane {
namespace {

    using test::Program;
    using test::waitUntil;

    struct ProgramsFixture : test::X11Desk {
        test::TempFolder folder;
        DesktopEntries entries { loop, DesktopEntries::standardFolders() };
        X11Workspace workspace { connection, entries, windowsOf(nullptr) };
        X11RawInput rawInput { connection };
        X11Keyboard keyboard { connection, keyMap, rawInput,
            { [this] { return workspace.isTerminalInFront(); }, [] { takePrimary(); } } };

        static void takePrimary()
        {
            auto* const clipboard = QGuiApplication::clipboard();
            clipboard->setText(clipboard->text(), QClipboard::Selection);
        }
        bool comesToFront(const std::string& identifier)
        {
            return waitUntil([&] {
                const auto application = workspace.frontmost();
                return application && application->bundleIdentifier == identifier;
            });
        }
        std::string nameInFront()
        {
            const auto application = workspace.frontmost();
            return application ? application->localizedName.value_or("") : "";
        }
        std::string titleInFront()
        {
            const auto application = workspace.frontmost();
            const auto hints = application
                ? readWindowHints(connection, static_cast<xcb_window_t>(application->window))
                : std::nullopt;
            return hints ? hints->title : "";
        }
        QString path(const char* name) const
        {
            return QString::fromStdString((folder.path() / name).string());
        }
    };

    TEST(X11RealProgramsTest, XtermIsKnownAndIsATerminal)
    {
        ProgramsFixture f;
        const Program xterm({ "xterm" });

        ASSERT_TRUE(f.comesToFront("debian-xterm"));

        EXPECT_EQ(f.nameInFront(), "XTerm");
        EXPECT_TRUE(f.workspace.isTerminalInFront());
    }

    TEST(X11RealProgramsTest, AVteTerminalIsKnownAndIsATerminal)
    {
        ProgramsFixture f;
        const Program terminal({ "xfce4-terminal", "--disable-server" });

        ASSERT_TRUE(f.comesToFront("xfce4-terminal"));

        EXPECT_TRUE(f.workspace.isTerminalInFront());
    }

    TEST(X11RealProgramsTest, AGtkEditorIsKnownAndIsNoTerminal)
    {
        ProgramsFixture f;
        const Program mousepad({ "mousepad", "--disable-server" });

        ASSERT_TRUE(f.comesToFront("org.xfce.mousepad"));

        EXPECT_EQ(f.nameInFront(), "Mousepad");
        EXPECT_FALSE(f.workspace.isTerminalInFront());
    }

    TEST(X11RealProgramsTest, AQtEditorIsKnown)
    {
        ProgramsFixture f;
        const Program featherpad({ "featherpad", "--standalone" });

        ASSERT_TRUE(f.comesToFront("featherpad"));

        EXPECT_EQ(f.nameInFront(), "FeatherPad");
    }

    TEST(X11RealProgramsTest, KeePassXCIsKnownAsThePasswordManagerThatItIs)
    {
        ProgramsFixture f;
        // It runs once for each user, and finds the others of its kind by the temporary folder.
        const Program keepassxc(
            { "env", "TMPDIR=" + QString::fromStdString(f.folder.path().string()), "keepassxc" });

        EXPECT_TRUE(f.comesToFront("org.keepassx.keepassxc"));
    }

    TEST(X11RealProgramsTest, ThePasteChordPastesIntoAGtkEditor)
    {
        ProgramsFixture f;
        const auto file = f.folder.path() / "letter.txt";
        test::writeFile(file, "");
        const Program mousepad({ "mousepad", "--disable-server", f.path("letter.txt") });
        ASSERT_TRUE(f.comesToFront("org.xfce.mousepad"));
        QGuiApplication::clipboard()->setText(QStringLiteral("pasted – вставлено"));

        f.keyboard.typeChord(keycodes::v, modifiers::command);
        ASSERT_TRUE(waitUntil([&] { return f.titleInFront().starts_with('*'); })); // it is changed
        constexpr KeyCode s = 1;
        f.keyboard.typeChord(s, modifiers::command);

        EXPECT_TRUE(waitUntil([&] { return test::readFile(file) == "pasted – вставлено"; }));
    }

    TEST(X11RealProgramsTest, ThePasteChordPastesIntoXtermWhateverIsHeld)
    {
        ProgramsFixture f;
        const auto file = f.folder.path() / "typed.txt";
        const Program xterm({ "xterm", "-e", "sh", "-c",
            QStringLiteral("echo ready > '%1'; cat > '%2'")
                .arg(f.path("ready"), f.path("typed.txt")) });
        ASSERT_TRUE(f.comesToFront("debian-xterm"));
        ASSERT_TRUE(waitUntil([&] { return std::filesystem::exists(f.folder.path() / "ready"); }));
        QGuiApplication::clipboard()->setText(QStringLiteral("pasted into a terminal\n"));
        f.input.press(test::keys::control);

        f.keyboard.typeChord(keycodes::v, modifiers::command);

        EXPECT_TRUE(waitUntil([&] { return test::readFile(file) == "pasted into a terminal\n"; }));
    }

} // namespace
} // namespace korvane
