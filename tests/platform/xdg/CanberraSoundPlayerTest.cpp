#include "platform/xdg/CanberraSoundPlayer.h"

#include "model/Preferences.h"
#include "support/Environment.h"
#include "support/EventLoop.h"
#include "support/RecordingLog.h"
#include "support/TempFolder.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

namespace korvane {
namespace {

    namespace fs = std::filesystem;
    using namespace std::chrono_literals;
    using test::TempFolder;
    using test::waitUntil;

    /// The sounds of the source tree.
    fs::path ourSounds()
    {
        return fs::path(__FILE__).parent_path() / "../../../resources/sounds";
    }

    /// A sound server of the test's own, with a loudspeaker that plays into nothing and a microphone
    /// in front of it. While it lives, this process plays there.
    class SoundServer {
    public:
        SoundServer()
            : m_environment({ { "PULSE_SERVER", "unix:" + socket().string() },
                { "HOME", m_folder.path() }, { "XDG_CONFIG_HOME", m_folder.path() },
                { "PULSE_RUNTIME_PATH", m_folder.path() },
                { "PULSE_COOKIE", m_folder.path() / "cookie" }, { "CANBERRA_DRIVER", "pulse" } })
        {
        }
        ~SoundServer()
        {
            for (auto* process : { &m_recorder, &m_server }) {
                process->kill();
                process->waitForFinished();
            }
        }
        SoundServer(const SoundServer&) = delete;
        SoundServer& operator=(const SoundServer&) = delete;

        bool start()
        {
            m_server.setStandardErrorFile(QProcess::nullDevice());
            m_server.start("pulseaudio",
                { "-n", "--daemonize=no", "--exit-idle-time=-1", "-L",
                    "module-null-sink sink_name=test", "-L",
                    QString::fromStdString(
                        "module-native-protocol-unix socket=" + socket().string()) });
            return m_server.waitForStarted()
                && waitUntil([this] { return fs::exists(socket()) || !isRunning(); })
                && isRunning();
        }
        /// Until the first silence has been recorded.
        bool record()
        {
            m_recorder.start("parec",
                { "--device=test.monitor", "--raw", "--format=s16le", "--channels=1",
                    "--rate=44100", "--latency-msec=20" });
            return m_recorder.waitForStarted()
                && waitUntil([this] { return m_recorder.bytesAvailable() > 0; });
        }
        /// Whether a sound is heard before the deadline.
        bool isHeard()
        {
            return waitUntil([this] { return listen().loudest > 1000; });
        }
        /// Whether silence is recorded, for longer than the pauses within a sound.
        bool isSilent()
        {
            constexpr std::size_t longEnough = 4410; // samples: a tenth of a second
            std::size_t silent = 0;
            return waitUntil([&] {
                const auto heard = listen();
                silent = heard.loudest > 0 ? 0 : silent + heard.samples;
                return silent >= longEnough;
            });
        }
        /// How many clients have a connection, answered or not.
        int clients() const
        {
            std::ifstream sockets("/proc/net/unix");
            auto count = 0;
            for (std::string line; std::getline(sockets, line);)
                count += line.ends_with(' ' + socket().string()) ? 1 : 0;
            return count - 1; // the one at which the server listens
        }
        void hang() { ::kill(static_cast<pid_t>(m_server.processId()), SIGSTOP); }
        void goOn() { ::kill(static_cast<pid_t>(m_server.processId()), SIGCONT); }

    private:
        struct Heard {
            int loudest = 0; ///< of 32768
            std::size_t samples = 0;
        };

        /// What has been recorded since the last time.
        Heard listen()
        {
            const auto bytes = m_recorder.readAll();
            Heard heard;
            for (qsizetype at = 0; at + 1 < bytes.size(); at += 2, ++heard.samples) {
                std::int16_t sample = 0;
                std::memcpy(&sample, bytes.constData() + at, sizeof sample);
                heard.loudest = std::max(heard.loudest, std::abs(int { sample }));
            }
            return heard;
        }
        bool isRunning() const { return m_server.state() == QProcess::Running; }
        fs::path socket() const { return m_folder.path() / "native"; }

        TempFolder m_folder;
        test::Environment m_environment;
        QProcess m_server;
        QProcess m_recorder;
    };

    struct CanberraSoundPlayerTest : testing::Test {
        void SetUp() override { ASSERT_TRUE(server.start()) << "pulseaudio cannot be started"; }
        std::chrono::steady_clock::duration timeOf(const std::function<void()>& action)
        {
            const auto begin = std::chrono::steady_clock::now();
            action();
            return std::chrono::steady_clock::now() - begin;
        }

        SoundServer server;
        test::RecordingLog log;
    };

    TEST_F(CanberraSoundPlayerTest, EverySoundIsHeard)
    {
        ASSERT_TRUE(server.record());
        CanberraSoundPlayer player(ourSounds(), log);

        for (const auto name : soundNames) {
            player.play(name);

            EXPECT_TRUE(server.isHeard()) << name;
            EXPECT_TRUE(server.isSilent()) << name;
        }
        EXPECT_TRUE(log.lines.empty());
    }

    TEST_F(CanberraSoundPlayerTest, ANameThatIsNoSoundPlaysNothing)
    {
        ASSERT_TRUE(server.record());
        TempFolder folder;
        fs::copy_file(ourSounds() / "Tink.wav", folder.path() / "Evil.wav");
        fs::create_directory(folder.path() / "inner");
        CanberraSoundPlayer player(folder.path() / "inner", log);

        for (const auto* name : { "../Evil", "Evil", "tink", "Tink.wav", "" })
            player.play(name);

        // A sound that would be heard comes within this time, as the other tests show.
        EXPECT_TRUE(server.isSilent());
        EXPECT_EQ(server.clients(), 1); // the microphone: the player has not even called
        EXPECT_TRUE(log.lines.empty());
    }

    TEST_F(CanberraSoundPlayerTest, AServerThatHangsHoldsNothingUp)
    {
        ASSERT_TRUE(server.record());
        {
            CanberraSoundPlayer player(ourSounds(), log);
            player.play("Pop");
            ASSERT_TRUE(server.isHeard());
            ASSERT_TRUE(server.isSilent());
            server.hang();

            for (auto count = 0; count < 20; ++count)
                EXPECT_LT(timeOf([&] { player.play("Tink"); }), 50ms);

            server.goOn();
            EXPECT_TRUE(server.isHeard());
        }
        EXPECT_TRUE(log.lines.empty());
    }

    TEST_F(CanberraSoundPlayerTest, AServerThatHangsFromTheStartDoesNotHoldUpTheEnd)
    {
        server.hang();
        std::optional<CanberraSoundPlayer> player(std::in_place, ourSounds(), log);
        player->play("Tink");
        ASSERT_TRUE(waitUntil([this] { return server.clients() == 1; }));

        EXPECT_LT(timeOf([&] { player.reset(); }), 2s);

        server.goOn(); // the thread that was left behind can end
    }

    TEST(CanberraSoundPlayerFailureTest, WithoutASoundServerOneLineIsLogged)
    {
        const TempFolder folder;
        const test::Environment environment(
            { { "PULSE_SERVER", "unix:" + (folder.path() / "nobody").string() },
                { "PULSE_RUNTIME_PATH", folder.path() }, { "CANBERRA_DRIVER", "pulse" } });
        test::RecordingLog log;
        CanberraSoundPlayer player(ourSounds(), log);

        const auto isLogged = waitUntil([&] {
            player.play("Tink");
            return !log.lines.empty();
        });
        for (auto count = 0; count < 10; ++count)
            player.play("Tink");

        EXPECT_TRUE(isLogged);
        ASSERT_EQ(log.lines.size(), 1U);
        EXPECT_TRUE(log.lines.front().starts_with("Korvane: a sound cannot be played: "));
    }

    TEST(FindSoundsFolderTest, TheInstalledSoundsGoBeforeThoseOfTheSourceTree)
    {
        const TempFolder folder;
        const auto program = folder.path() / "bin" / "korvane";
        const auto installed = folder.path() / "share" / "korvane" / "sounds";

        EXPECT_EQ(findSoundsFolder(program, "/source"), "/source");
        fs::create_directories(installed);
        EXPECT_EQ(findSoundsFolder(program, "/source"), installed);
    }

    std::uint32_t number(const std::string& bytes, std::size_t at, std::size_t size)
    {
        std::uint32_t value = 0; // the files are little-endian, and so are the machines we run on
        std::memcpy(&value, bytes.data() + at, size);
        return value;
    }

    TEST(SoundFilesTest, EverySoundNameHasAShortSoundThatDoesNotClick)
    {
        for (const auto name : soundNames) {
            std::ifstream stream(ourSounds() / (std::string(name) + ".wav"), std::ios::binary);
            const std::string file { std::istreambuf_iterator(stream), {} };
            ASSERT_GT(file.size(), 46U) << name;
            const auto sampleAt
                = [&](std::size_t at) { return static_cast<std::int16_t>(number(file, at, 2)); };

            // The canonical head of a WAV file: 44 bytes.
            EXPECT_EQ(file.substr(0, 4) + file.substr(8, 8), "RIFFWAVEfmt ") << name;
            EXPECT_EQ(number(file, 20, 2), 1U) << name; // PCM
            EXPECT_EQ(number(file, 22, 2), 1U) << name; // mono
            EXPECT_EQ(number(file, 24, 4), 44100U) << name;
            EXPECT_EQ(number(file, 34, 2), 16U) << name;
            EXPECT_LT((file.size() - 44) / 2, 44100U * 3 / 10) << name;
            // It rises from silence and sinks to it: the edges stay below a hundredth of the full
            // scale.
            for (std::size_t index = 0; index < 8; ++index) {
                EXPECT_LT(std::abs(sampleAt(44 + 2 * index)), 328) << name;
                EXPECT_LT(std::abs(sampleAt(file.size() - 2 - 2 * index)), 328) << name;
            }
        }
    }

} // namespace
} // namespace korvane
