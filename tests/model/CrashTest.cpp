#include "model/ClipStore.h"

#include "support/StoreFixture.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <random>

namespace korvane {
namespace {

    using test::StoreFixture;

    /// Adds clip after clip, and says so through the pipe after each.
    [[noreturn]] void saveForEver(StoreFixture& f, int pipe)
    {
        for (unsigned char number = 0;; ++number) {
            f.add("clip " + std::to_string(number) + std::string(20'000, 'x'));
            if (::write(pipe, &number, 1) != 1)
                ::_exit(1);
        }
    }

    /// Reads what the child has acknowledged, until it is to be killed.
    int killAmongSaves(pid_t child, int pipe, std::mt19937& random)
    {
        int acknowledged = 0;
        unsigned char number = 0;
        const auto saves = static_cast<int>(1 + random() % 3);
        while (acknowledged < saves && ::read(pipe, &number, 1) == 1)
            ++acknowledged;
        // Anywhere in the next save: a turn of this loop is far shorter than one.
        for (auto turns = random() % 300'000; turns > 0; --turns)
            asm volatile("");
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        while (::read(pipe, &number, 1) == 1)
            ++acknowledged;
        return acknowledged;
    }

    TEST(CrashTest, AKillAtAnyMomentLeavesTheHistoryBeforeOrAfterTheChange)
    {
        std::mt19937 random(7);
        for (int kill = 0; kill < 220; ++kill) {
            StoreFixture f;
            f.store->setMaxClips(50);
            std::array<int, 2> pipe {};
            ASSERT_EQ(::pipe(pipe.data()), 0);
            const auto child = ::fork();
            if (child == 0) {
                ::close(pipe[0]);
                saveForEver(f, pipe[1]);
            }
            ::close(pipe[1]);
            const auto acknowledged
                = static_cast<std::size_t>(killAmongSaves(child, pipe[0], random));
            ::close(pipe[0]);

            const auto& clips = f.open().clips();

            // What was acknowledged is there; the one that was under way may be there too.
            ASSERT_GE(clips.size(), acknowledged);
            ASSERT_LE(clips.size(), acknowledged + 1);
            for (std::size_t i = 0; i < clips.size(); ++i)
                ASSERT_EQ(clips[i].text,
                    "clip " + std::to_string(clips.size() - 1 - i) + std::string(20'000, 'x'));
        }
    }

} // namespace
} // namespace korvane
