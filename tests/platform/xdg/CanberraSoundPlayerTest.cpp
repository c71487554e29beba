#include "platform/xdg/CanberraSoundPlayer.h"

#include "model/Preferences.h"
#include "support/Environment.h"
#include "support/EventLoop.h"
#include "support/RecordingLog.h"
#include "support/SoundFile.h"
#include "support/SoundServer.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {
namespace {

    namespace fs = std::filesystem;
    using namespace std::chrono_literals;
    using test::ourSounds;
    using test::SoundServer;
    using test::TempFolder;
    using test::waitUntil;

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

    bool isZero(int sample)
    {
        return sample == 0;
    }

    /// What lies between the silence before a sound and the silence after it.
    std::vector<std::int16_t> withoutSilence(const std::vector<std::int16_t>& samples)
    {
        const auto begin = std::ranges::find_if_not(samples, isZero);
        const auto end = std::find_if_not(samples.rbegin(), samples.rend(), isZero).base();
        return begin < end ? std::vector(begin, end) : std::vector<std::int16_t>();
    }

    TEST_F(CanberraSoundPlayerTest, EverySoundIsPlayedAsItIsWithoutAGapOrAClick)
    {
        ASSERT_TRUE(server.record());
        CanberraSoundPlayer player(ourSounds(), log);

        for (const auto name : soundNames) {
            ASSERT_TRUE(server.isSilent());
            player.play(name);
            ASSERT_TRUE(server.isHeard()) << name;
            ASSERT_TRUE(server.isSilent()) << name;
            player.play(name);
            auto heard = server.recorded();
            for (int silences = 0; silences < 100 && !heard.empty(); ++silences) {
                if (!std::ranges::all_of(heard, isZero))
                    break;
                heard = server.recorded();
            }

            const auto played = withoutSilence(heard);
            const auto sound = withoutSilence(test::samplesOf(test::soundFile(name)));
            // The microphone has sent off as silence already what the loudspeaker begins with: less
            // than a twentieth of a second.
            ASSERT_LE(played.size(), sound.size()) << name;
            ASSERT_GE(played.size() + 2205, sound.size()) << name;
            int farthest = 0;
            for (std::size_t at = 0; at < played.size(); ++at)
                farthest = std::max(
                    farthest, std::abs(played[at] - sound[sound.size() - played.size() + at]));
            // The way from one channel to two and back rounds.
            EXPECT_LE(farthest, 2) << name;
        }
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

} // namespace
} // namespace korvane
