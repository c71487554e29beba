#include "platform/xdg/XdgDesktop.h"

#include "support/Environment.h"
#include "support/EventLoop.h"
#include "support/RecordingLog.h"
#include "support/SessionBus.h"
#include "support/TempFolder.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>

#include <glib.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {
namespace {

    namespace fs = std::filesystem;
    using namespace std::chrono_literals;
    using test::SessionBus;
    using test::TempFolder;
    using test::waitUntil;

    constexpr auto serviceName = "org.freedesktop.FileManager1";

    /// A file manager that notes what it is asked for.
    class FileManager : public QDBusVirtualObject {
    public:
        enum class Manner { answers, refuses, keepsSilent };

        FileManager(QDBusConnection bus, Manner manner)
            : m_manner(manner)
        {
            EXPECT_TRUE(bus.registerVirtualObject("/org/freedesktop/FileManager1", this));
            EXPECT_TRUE(bus.registerService(serviceName));
        }

        QString introspect(const QString&) const override { return {}; }
        bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override
        {
            calls.push_back(message);
            switch (m_manner) {
            case Manner::answers:
                bus.send(message.createReply());
                break;
            case Manner::refuses:
                bus.send(message.createErrorReply(QDBusError::Failed, "no such file"));
                break;
            case Manner::keepsSilent:
                break;
            }
            return true;
        }

        std::vector<QDBusMessage> calls;

    private:
        Manner m_manner;
    };

    /// A home folder in which a script of ours is the default application of a type: it writes the
    /// address that it is given into a file. GLib reads these folders once for each process, so
    /// whoever needs another home tries it in a process of its own (see `EXPECT_EXIT` below).
    class Home {
    public:
        explicit Home(const std::string& type)
            : m_environment({ { "XDG_DATA_HOME", m_folder.path() / "data" },
                { "XDG_CONFIG_HOME", m_folder.path() / "config" },
                { "XDG_DATA_DIRS", m_folder.path() / "none" },
                { "XDG_CONFIG_DIRS", m_folder.path() / "none" }, { "XDG_CURRENT_DESKTOP", "" } })
        {
            const auto script = m_folder.path() / "recorder";
            write(script,
                "#!/bin/sh\nprintf '%s%s' \"$*\" \"$KORVANE_TEST_OURS\" > '" + record().string()
                    + ".part' && mv '" + record().string() + ".part' '" + record().string()
                    + "'\n");
            fs::permissions(script, fs::perms::owner_all);
            write(m_folder.path() / "data/applications/recorder.desktop",
                "[Desktop Entry]\nType=Application\nName=Recorder\nExec=" + script.string()
                    + " %u\nMimeType=" + type + ";\n");
            write(m_folder.path() / "config/mimeapps.list",
                "[Default Applications]\n" + type + "=recorder.desktop\n");
        }

        /// GLib has not looked at other folders before.
        bool isSeen() const { return g_get_user_data_dir() == (m_folder.path() / "data").string(); }
        /// What the application was started with.
        std::string opened() const
        {
            waitUntil([this] { return fs::exists(record()); });
            std::ifstream stream(record());
            return { std::istreambuf_iterator(stream), {} };
        }

    private:
        static void write(const fs::path& file, const std::string& text)
        {
            fs::create_directories(file.parent_path());
            std::ofstream(file) << text;
        }
        fs::path record() const { return m_folder.path() / "opened"; }

        TempFolder m_folder;
        test::Environment m_environment;
    };

    struct XdgDesktopTest : testing::Test {
        XdgDesktopTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

        SessionBus bus;
        test::RecordingLog log;
    };
    using XdgDesktopDeathTest = XdgDesktopTest;

    /// Ends a process of its own: with 0 when what was opened is what was expected.
    [[noreturn]] void leave(const Home& home, const std::string& expected)
    {
        if (!home.isSeen())
            std::fputs("GLib looked elsewhere", stderr);
        const auto opened = home.opened();
        std::fprintf(stderr, "opened: %s", opened.c_str());
        std::_Exit(home.isSeen() && opened == expected ? 0 : 1);
    }

    TEST_F(XdgDesktopTest, TheFileManagerIsAskedToShowTheFile)
    {
        const FileManager manager(bus.connection("manager"), FileManager::Manner::answers);
        XdgDesktop desktop(bus.connection("us"), log);

        desktop.revealFile("/tmp/Jahr 2026/100 %/a#b?.txt");

        ASSERT_TRUE(waitUntil([&] { return !manager.calls.empty(); }));
        const auto& call = manager.calls.front();
        EXPECT_EQ(call.interface(), serviceName);
        EXPECT_EQ(call.member(), "ShowItems");
        EXPECT_EQ(call.signature(), "ass");
        EXPECT_EQ(call.arguments().at(0).toStringList(),
            QStringList { "file:///tmp/Jahr%202026/100%20%25/a%23b%3F.txt" });
        EXPECT_EQ(call.arguments().at(1).toString(), "");
        EXPECT_TRUE(log.lines.empty());
    }

    TEST_F(XdgDesktopTest, AFileNameOutsideAsciiIsEncodedByteForByte)
    {
        const FileManager manager(bus.connection("manager"), FileManager::Manner::answers);
        XdgDesktop desktop(bus.connection("us"), log);

        desktop.revealFile("/tmp/é\xff");

        ASSERT_TRUE(waitUntil([&] { return !manager.calls.empty(); }));
        EXPECT_EQ(manager.calls.front().arguments().at(0).toStringList(),
            QStringList { "file:///tmp/%C3%A9%FF" });
    }

    TEST_F(XdgDesktopTest, APathThatIsNotAbsoluteIsLeftAlone)
    {
        const FileManager manager(bus.connection("manager"), FileManager::Manner::answers);
        XdgDesktop desktop(bus.connection("us"), log);

        for (const auto* path : { "", "file.txt", "~/file.txt", "file:///tmp/a" })
            desktop.revealFile(path);
        desktop.revealFile("/tmp/last");

        // Calls arrive in their order, so nothing else has been asked before.
        ASSERT_TRUE(waitUntil([&] { return !manager.calls.empty(); }));
        EXPECT_EQ(manager.calls.front().arguments().at(0).toStringList(),
            QStringList { "file:///tmp/last" });
    }

    TEST_F(XdgDesktopTest, AFileManagerThatKeepsSilentHoldsNothingUp)
    {
        const FileManager manager(bus.connection("manager"), FileManager::Manner::keepsSilent);
        XdgDesktop desktop(bus.connection("us"), log);
        const auto begin = std::chrono::steady_clock::now();

        desktop.revealFile("/tmp/a");

        EXPECT_LT(std::chrono::steady_clock::now() - begin, 100ms);
        EXPECT_TRUE(waitUntil([&] { return !manager.calls.empty(); }));
    }

    TEST_F(XdgDesktopTest, TheDesktopMayEndWhileACallIsUnderWay)
    {
        const FileManager manager(bus.connection("manager"), FileManager::Manner::refuses);
        {
            XdgDesktop desktop(bus.connection("us"), log);
            desktop.revealFile("/tmp/a");
        }

        EXPECT_TRUE(waitUntil([&] { return !manager.calls.empty(); }));
        QCoreApplication::processEvents();
        EXPECT_TRUE(log.lines.empty());
    }

    TEST_F(XdgDesktopDeathTest, WithoutAFileManagerTheDefaultApplicationOpensTheFolder)
    {
        const auto open = [this] {
            const Home home("inode/directory");
            XdgDesktop desktop(bus.connection("us"), log);
            desktop.revealFile("/tmp/Jahr 2026/a.txt");
            leave(home, "/tmp/Jahr 2026"); // to a program, GIO hands a local file as its path
        };

        EXPECT_EXIT(open(), testing::ExitedWithCode(0), "");
    }

    TEST_F(XdgDesktopDeathTest, WhatTheFileManagerRefusesTheDefaultApplicationOpens)
    {
        const auto open = [this] {
            const Home home("inode/directory");
            const FileManager manager(bus.connection("manager"), FileManager::Manner::refuses);
            XdgDesktop desktop(bus.connection("us"), log);
            desktop.revealFile("/tmp/a.txt");
            leave(home, "/tmp");
        };

        EXPECT_EXIT(open(), testing::ExitedWithCode(0), "");
    }

    TEST_F(XdgDesktopDeathTest, AFileManagerThatKeepsSilentIsGivenUpAfterThePatience)
    {
        const auto open = [this] {
            const Home home("inode/directory");
            const FileManager manager(bus.connection("manager"), FileManager::Manner::keepsSilent);
            XdgDesktop desktop(bus.connection("us"), log, 100ms);
            desktop.revealFile("/tmp/a.txt");
            leave(home, "/tmp");
        };

        EXPECT_EXIT(open(), testing::ExitedWithCode(0), "");
    }

    TEST_F(XdgDesktopDeathTest, WithoutASessionBusTheDefaultApplicationOpensTheFolder)
    {
        const auto open = [this] {
            const Home home("inode/directory");
            XdgDesktop desktop(QDBusConnection("nobody"), log);
            desktop.revealFile("/tmp/a.txt");
            leave(home, "/tmp");
        };

        EXPECT_EXIT(open(), testing::ExitedWithCode(0), "");
    }

    TEST_F(XdgDesktopDeathTest, AnAddressIsOpenedInTheBrowser)
    {
        const auto open = [this] {
            const Home home("x-scheme-handler/https");
            XdgDesktop desktop(bus.connection("us"), log);
            desktop.openAddress("HTTPS://korvane.example/a b?c=d&e#f");
            leave(home, "https://korvane.example/a%20b?c=d&e#f");
        };

        EXPECT_EXIT(open(), testing::ExitedWithCode(0), "");
    }

    TEST_F(XdgDesktopDeathTest, WhatIsMeantForUsAloneIsNotInherited)
    {
        const auto open = [this](bool isWithheld, const char* expected) {
            ::setenv("KORVANE_TEST_OURS", "ours", 1);
            const Home home("inode/directory");
            XdgDesktop desktop(QDBusConnection("nobody"), log);
            if (isWithheld)
                desktop.withhold("KORVANE_TEST_OURS");
            desktop.revealFile("/tmp/a.txt");
            leave(home, expected);
        };

        EXPECT_EXIT(open(false, "/tmpours"), testing::ExitedWithCode(0), "");
        EXPECT_EXIT(open(true, "/tmp"), testing::ExitedWithCode(0), "");
    }

    TEST_F(XdgDesktopDeathTest, WithoutAnApplicationOneLineIsLogged)
    {
        const auto open = [this] {
            const Home home("text/plain");
            XdgDesktop desktop(bus.connection("us"), log);
            desktop.revealFile("/tmp/a.txt");
            waitUntil([this] { return !log.lines.empty(); });
            desktop.openAddress("http://korvane.example/");
            const std::vector<std::string> expected { "Korvane: no application can show a folder",
                "Korvane: no application can open a web address" };
            std::_Exit(home.isSeen() && log.lines == expected ? 0 : 1);
        };

        EXPECT_EXIT(open(), testing::ExitedWithCode(0), "");
    }

    TEST_F(XdgDesktopDeathTest, OnlyWebAddressesAreOpened)
    {
        const auto open = [this] {
            const Home home("x-scheme-handler/http");
            XdgDesktop desktop(bus.connection("us"), log);
            for (const auto* address : { "", "korvane.example", "file:///etc/passwd",
                     "ftp://korvane.example", "mailto:a@korvane.example", "javascript:alert(1)",
                     "http:", "http://", "http:///path", "https//korvane.example", "--help" })
                desktop.openAddress(address);
            // Whatever else had been opened, or missed an application, would be seen.
            desktop.openAddress("http://last.example/");
            leave(home, log.lines.empty() ? "http://last.example/" : "nothing at all");
        };

        EXPECT_EXIT(open(), testing::ExitedWithCode(0), "");
    }

} // namespace
} // namespace korvane
