// One running Korvane: introduces the platform to the application.

#include "app/AppDelegate.h"
#include "app/view/AlertBoxes.h"
#include "app/view/ApplicationTheme.h"
#include "app/view/ClipPreviewWindow.h"
#include "app/view/FileDialogWindows.h"
#include "app/view/KeyParent.h"
#include "app/view/PanelWindow.h"
#include "app/view/SettingsWindow.h"
#include "app/view/TrayItem.h"
#include "platform/CommandLine.h"
#include "platform/Instance.h"
#include "platform/TerminationSignals.h"
#include "platform/qt/PortalFileDialogs.h"
#include "platform/qt/PortalSettings.h"
#include "platform/qt/QtDocumentFetcher.h"
#include "platform/qt/QtMainLoop.h"
#include "platform/wayland/qt/LayerShell.h"
#include "platform/xdg/AutostartEntry.h"
#include "platform/xdg/BaseFolders.h"
#include "platform/xdg/CanberraSoundPlayer.h"
#include "platform/xdg/PreferencesFile.h"
#include "platform/xdg/SystemLog.h"
#include "platform/xdg/XdgDesktop.h"
#include "session/SessionChoice.h"
#include "session/WaylandSession.h"
#include "session/X11Session.h"

#include <QApplication>

#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace korvane {
namespace {

    constexpr const char* folderName = "com.VNT.Korvane";
    // Has the toolkit take listeners of assistive technology at any time; see `run`.
    constexpr const char* alwaysAccessible = "QT_LINUX_ACCESSIBILITY_ALWAYS_ON";

    void say(FILE* stream, const std::string& line)
    {
        std::fprintf(stream, "%s\n", line.c_str());
    }

    /// The program's file, as it is to be named in a key binding.
    std::string programPath()
    {
        std::error_code none;
        const auto file = std::filesystem::read_symlink("/proc/self/exe", none);
        return none ? "korvane" : file.string();
    }

    /// What is to be said and with which status to end, when the arguments ask for no more.
    std::optional<int> answerArguments(const CommandLine& commandLine)
    {
        switch (commandLine.request) {
        case CommandLine::Request::version:
        case CommandLine::Request::help:
            say(stdout, commandLine.text);
            return EXIT_SUCCESS;
        case CommandLine::Request::platform: {
            const auto facts = SessionFacts::ofProcess();
            std::fputs(sessionReport(facts, programPath()).c_str(), stdout);
            return chooseSession(facts).server ? EXIT_SUCCESS : EXIT_FAILURE;
        }
        case CommandLine::Request::misuse:
            say(stderr, commandLine.text);
            return 2;
        case CommandLine::Request::start:
        case CommandLine::Request::wish:
            break;
        }
        return std::nullopt;
    }

    /// Builds with tests may be shown another site than their own; what a user runs looks at no such
    /// variable, so that nobody leads it astray.
    std::string site()
    {
        constexpr const char* variable = KORVANE_SITE_VARIABLE;
        const char* const shown = *variable != '\0' ? std::getenv(variable) : nullptr;
        return shown != nullptr ? shown : KORVANE_SITE;
    }

    constexpr auto schemes = KORVANE_PLAIN_HTTP ? QtDocumentFetcher::Schemes::httpToo
                                                : QtDocumentFetcher::Schemes::https;

    TextReader textReader(Pasteboard& pasteboard)
    {
        return [&pasteboard](std::function<void(QString)> answer) {
            pasteboard.read(
                [answer = std::move(answer)](std::optional<Pasteboard::Contents> contents) {
                    // A field keeps so many characters at most, each of four bytes at most.
                    constexpr std::size_t most = 4UL * 32767;
                    answer(contents && contents->text
                            ? QString::fromUtf8(std::string_view(*contents->text).substr(0, most))
                            : QString());
                });
        };
    }

    /// The program from its first window to its end. Everything is a member, so that it ends in
    /// the reverse order.
    class Program {
    public:
        /// All that is handed over by reference outlives the program.
        Program(const BaseFolders& folders, InstanceClaim claim, QtMainLoop& loop, TrayItem& tray,
            Session& session, SystemLog& log, QtDocumentFetcher& documents)
            : m_loop(loop)
            , m_tray(tray)
            , m_session(session)
            , m_log(log)
            , m_documents(documents)
            , m_preferences(folders.configHome / folderName / "preferences.json", m_loop, m_log)
            , m_desktop(QDBusConnection::sessionBus(), m_log)
            , m_sounds(findSoundsFolder(QCoreApplication::applicationFilePath().toStdString(),
                           KORVANE_SOUNDS_DIR),
                  m_log)
            , m_loginItem(folders.configHome / "autostart" / (std::string(folderName) + ".desktop"),
                  QCoreApplication::applicationFilePath().toStdString())
            , m_theme(m_portal.isDark(), m_portal.isAnimated())
            , m_ownFileDialogs(textReader(m_session.pasteboard()))
            , m_fileDialogs(QDBusConnection::sessionBus(), m_loop, m_log, m_ownFileDialogs,
                  keyParent, firstFolder())
            , m_app(ports(), folders.dataHome / folderName)
            , m_instance(std::move(claim), m_loop)
        {
            m_desktop.withhold(LayerShell::toolkitVariable);
            m_desktop.withhold(alwaysAccessible);
            m_connections.push_back(m_instance.wished.connect([this](Wish wish) { fulfil(wish); }));
            m_connections.push_back(
                m_session.panelLost.connect([this] { m_app.shell().hidePanel(); }));
            // The panel would keep the keyboard from it.
            m_connections.push_back(
                m_fileDialogs.opening.connect([this] { m_app.shell().hidePanel(); }));
            m_connections.push_back(
                m_session.closed.connect([] { QCoreApplication::exit(EXIT_FAILURE); }));
        }

        bool launch()
        {
            if (!m_app.launch())
                return false;
            m_tray.show();
            // At the start of a desktop the tray may come after the programs that show icons in it.
            m_trayCheck = m_loop.after(std::chrono::seconds { 3 }, [this] {
                if (!TrayItem::isAvailable())
                    m_log.line("Korvane: there is no tray; korvane --show opens the panel");
            });
            return true;
        }

        /// In the log, and on standard error in any case.
        void warn(const std::string& line)
        {
            m_log.line(line);
            if (::isatty(STDERR_FILENO) == 0) // else the log is there too
                say(stderr, line);
        }

        void fulfil(Wish wish)
        {
            switch (wish) {
            case Wish::show:
                return m_app.shell().showPanel();
            case Wish::toggle:
                return m_app.shell().togglePanel();
            case Wish::hide:
                return m_app.shell().hidePanel();
            case Wish::quit:
                return QCoreApplication::exit(EXIT_SUCCESS);
            }
        }

        /// On the loop's next turn, when the panel stands.
        void fulfilSoon(Wish wish)
        {
            m_loop.post([this, wish] { fulfil(wish); });
        }

    private:
        Ports ports()
        {
            return { m_loop, m_log, m_preferences, m_session.pasteboard(), m_session.workspace(),
                m_session.hotkeyGrabber(), m_session.keyboard(), m_desktop, m_sounds, m_tray,
                m_session.screens(), m_session.outsideClicks(), m_theme, m_alerts, m_documents,
                m_fileDialogs,
                [this](ClipStore& store, PanelController& controller) {
                    return std::make_unique<PanelWindow>(store, controller, panelWorld());
                },
                [this] {
                    return std::make_unique<ClipPreviewWindow>(m_session.screens(),
                        m_session.stage(), m_session.isComposited(), frameTeller());
                },
                [this] { m_loop.post([] { QCoreApplication::exit(EXIT_SUCCESS); }); }, site(),
                [this](const SettingsSubjects& subjects) {
                    SettingsWindow::installAccess();
                    return std::make_unique<SettingsWindow>(subjects, settingsWorld());
                } };
        }

        SettingsWindow::World settingsWorld()
        {
            return { m_loop, m_session.screens(), m_preferences, m_sounds, m_loginItem, std::cout,
                textReader(m_session.pasteboard()), m_session.keyRecorder(),
                m_session.applications(), m_alerts,
                [this](std::uint32_t window) { m_session.passKeyboard(window); } };
        }

        PanelWindow::World panelWorld()
        {
            return { m_loop, m_session.screens(), m_session.isComposited(),
                textReader(m_session.pasteboard()), m_session.stage(), frameTeller() };
        }

        KorPanel::FrameTeller frameTeller()
        {
            return [this](std::uint32_t window, QRect panel, QSize whole) {
                m_session.tellFrame(window, panel, whole);
            };
        }

        QtMainLoop& m_loop;
        TrayItem& m_tray;
        Session& m_session;
        SystemLog& m_log;
        QtDocumentFetcher& m_documents;
        TerminationSignals m_signals { m_loop, [] { QCoreApplication::exit(EXIT_SUCCESS); } };
        PreferencesFile m_preferences;
        XdgDesktop m_desktop;
        CanberraSoundPlayer m_sounds;
        AutostartEntry m_loginItem;
        PortalSettings m_portal;
        ApplicationTheme m_theme;
        AlertBoxes m_alerts;
        FileDialogWindows m_ownFileDialogs; // where the desktop has none
        PortalFileDialogs m_fileDialogs;
        AppDelegate m_app;
        Instance m_instance;
        std::vector<Connection> m_connections;
        Timer m_trayCheck;
    };

    /// From its end on, the process has one second left: the toolkit then offers a text of ours on the
    /// clipboard to the desktop's clipboard manager, and would wait five seconds for one that hangs; a
    /// name server that is slow to answer a check for updates could keep it as long.
    /// Everything of ours is on the disk by then.
    struct FarewellLimit {
        int status = EXIT_SUCCESS;

        FarewellLimit() = default;
        FarewellLimit(const FarewellLimit&) = delete;
        FarewellLimit& operator=(const FarewellLimit&) = delete;
        ~FarewellLimit()
        {
            std::thread([status = status] {
                std::this_thread::sleep_for(std::chrono::seconds { 1 });
                ::_exit(status);
            }).detach();
        }
    };

    /// On which display server to run; none, and it is said why, where there is none that will do.
    std::optional<DisplayServer> chooseServer()
    {
        const auto choice = chooseSession(SessionFacts::ofProcess());
        if (!choice.server)
            say(stderr, "korvane: " + choice.reason);
        return choice.server;
    }

    /// Whether the home is one that can be used.
    bool checkHome(const BaseFolders& folders)
    {
        const auto error = makeDataFolder(folders, folderName);
        if (error)
            say(stderr,
                "korvane: there is no usable home folder: cannot make " + folders.dataHome.string()
                    + ": " + error.message());
        return !error;
    }

    std::unique_ptr<Session> openSession(
        DisplayServer server, QtMainLoop& loop, TrayItem& tray, SystemLog& log)
    {
        if (server == DisplayServer::x11)
            return std::make_unique<X11Session>(loop, tray);
        return WaylandSession::open(loop, tray, log);
    }

    int run(std::string programFile, const CommandLine& commandLine, DisplayServer server,
        const BaseFolders& folders, InstanceClaim claim)
    {
        surviveBrokenPipes();
        // The toolkit would look only once, now, whether a screen reader runs, and not see one that the
        // user starts later. This is the switch that programs of other toolkits are kept out with.
        if (std::getenv("NO_AT_BRIDGE") == nullptr)
            ::setenv(alwaysAccessible, "1", 0);
        // The class of the windows; their instance is the name of the program file.
        QCoreApplication::setApplicationName("Korvane");
        QCoreApplication::setApplicationVersion(KORVANE_VERSION);
        QGuiApplication::setDesktopFileName(folderName);
        QGuiApplication::setQuitOnLastWindowClosed(false);
        // Not by the environment, which the programs that we start would inherit.
        std::string option = "-platform";
        std::string platform = server == DisplayServer::wayland ? "wayland" : "xcb";
        std::array<char*, 3> toolkitArguments { programFile.data(), option.data(),
            platform.data() };
        if (server == DisplayServer::wayland)
            WaylandSession::prepareToolkit();
        auto count = static_cast<int>(toolkitArguments.size());
        const QApplication application(count, toolkitArguments.data());

        SystemLog log;
        QtDocumentFetcher documents(schemes, log);
        // Ends after the program and before the toolkit, which waits for the names that it is looking up.
        FarewellLimit farewell;
        QtMainLoop loop;
        TrayItem tray;
        const auto session = openSession(server, loop, tray, log);
        if (!session) {
            say(stderr, "korvane: the compositor has gone, or gives the panel no place");
            return farewell.status = EXIT_FAILURE;
        }
        Program program(folders, std::move(claim), loop, tray, *session, log, documents);
        const auto dataFolder = folders.dataHome / folderName;
        if (::access(dataFolder.c_str(), W_OK | X_OK) != 0)
            program.warn(
                "Korvane: cannot write to " + dataFolder.string() + ", so the history is not kept");
        if (!program.launch()) {
            say(stderr,
                "korvane: the stored shortcut is not possible; see hotkeyKeyCode and "
                "hotkeyModifiers in preferences.json");
            return farewell.status = EXIT_FAILURE;
        }
        if (commandLine.opensPanel())
            program.fulfilSoon(commandLine.wish);
        return farewell.status = QApplication::exec();
    }

    int main(int argc, char** argv)
    {
        const std::vector<std::string_view> arguments(argv + std::min(argc, 1), argv + argc);
        const auto commandLine = parseCommandLine(arguments);
        if (const auto status = answerArguments(commandLine))
            return *status;

        const auto sources = FolderSources::ofProcess();
        const auto folders = findBaseFolders(sources);
        if (!folders) {
            say(stderr, std::string(noHomeText));
            return EXIT_FAILURE;
        }
        const auto runtimeFolder = findRuntimeFolder(sources);
        if (!runtimeFolder) {
            say(stderr,
                "korvane: there is no folder for its socket: XDG_RUNTIME_DIR is not set, and the "
                "one in /tmp belongs to somebody else");
            return EXIT_FAILURE;
        }
        auto start = startInstance(*runtimeFolder, commandLine.wish);
        switch (start.outcome) {
        case InstanceStart::Outcome::passed:
            return EXIT_SUCCESS;
        case InstanceStart::Outcome::failed:
            say(stderr, start.reason);
            return EXIT_FAILURE;
        case InstanceStart::Outcome::first:
            break;
        }
        std::optional<DisplayServer> server;
        if (commandLine.startsProgram() && !((server = chooseServer()) && checkHome(*folders)))
            return EXIT_FAILURE;
        const auto dataFolder = folders->dataHome / folderName;
        // One that was started with another runtime folder hears nobody who is started in this one.
        const auto history = claimFolder(dataFolder);
        if (!history) {
            say(stderr,
                "korvane: another Korvane uses the history in " + dataFolder.string()
                    + "; it was started with another XDG_RUNTIME_DIR");
            return EXIT_FAILURE;
        }
        if (!server)
            return EXIT_SUCCESS;
        return run(argc > 0 ? argv[0] : "korvane", commandLine, *server, *folders,
            std::move(*start.claim));
    }

} // namespace
} // namespace korvane

int main(int argc, char** argv)
{
    return korvane::main(argc, argv);
}
