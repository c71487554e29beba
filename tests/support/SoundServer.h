#pragma once

#include "support/Environment.h"
#include "support/EventLoop.h"
#include "support/TempFolder.h"

#include <QProcess>

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace korvane::test {

/// A sound server of the test's own, with a loudspeaker that plays into nothing and a microphone
/// in front of it. While it lives, this process plays there.
class SoundServer {
public:
    SoundServer()
        : m_environment(
            { { "PULSE_SERVER", "unix:" + socket().string() }, { "HOME", m_folder.path() },
                { "XDG_CONFIG_HOME", m_folder.path() }, { "PULSE_RUNTIME_PATH", m_folder.path() },
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
            && waitUntil([this] { return std::filesystem::exists(socket()) || !isRunning(); })
            && isRunning();
    }
    /// Until the first silence has been recorded.
    bool record()
    {
        m_recorder.start("parec",
            { "--device=test.monitor", "--raw", "--format=s16le", "--channels=1", "--rate=44100",
                "--latency-msec=20" });
        return m_recorder.waitForStarted()
            && waitUntil([this] { return m_recorder.bytesAvailable() > 0; });
    }
    /// Whether a sound is heard before the deadline.
    bool isHeard()
    {
        return waitUntil([this] {
            return std::ranges::any_of(
                listen(), [](int sample) { return std::abs(sample) > 1000; });
        });
    }
    /// Whether silence is recorded, for longer than the pauses within a sound.
    bool isSilent() { return !recorded().empty(); }
    /// What is recorded until there is silence for longer than the pauses within a sound, that
    /// silence included; nothing when it does not come before the deadline.
    std::vector<std::int16_t> recorded()
    {
        constexpr std::ptrdiff_t longEnough = 4410; // samples: a tenth of a second
        std::vector<std::int16_t> samples;
        std::ptrdiff_t silent = 0;
        const auto isOver = waitUntil([&] {
            for (const auto sample : listen()) {
                samples.push_back(sample);
                silent = sample == 0 ? silent + 1 : 0;
            }
            return silent >= longEnough;
        });
        return isOver ? samples : std::vector<std::int16_t>();
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
    /// What has been recorded since the last time.
    std::vector<std::int16_t> listen()
    {
        m_bytes += m_recorder.readAll();
        const auto count = m_bytes.size() / 2;
        std::vector<std::int16_t> samples(static_cast<std::size_t>(count));
        std::copy_n(m_bytes.constData(), count * 2, reinterpret_cast<char*>(samples.data()));
        m_bytes.remove(0, count * 2);
        return samples;
    }
    bool isRunning() const { return m_server.state() == QProcess::Running; }
    std::filesystem::path socket() const { return m_folder.path() / "native"; }

    TempFolder m_folder;
    test::Environment m_environment;
    QProcess m_server;
    QProcess m_recorder;
    QByteArray m_bytes; // half a sample, at most, between two looks
};

} // namespace korvane::test
