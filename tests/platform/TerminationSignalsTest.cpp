#include "platform/TerminationSignals.h"

#include "platform/qt/QtMainLoop.h"
#include "support/EventLoop.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>

namespace korvane {
namespace {

    using test::waitUntil;

    TEST(TerminationSignalsTest, EachSignalThatAsksForTheEndIsToldOnTheLoop)
    {
        for (const int signal : { SIGTERM, SIGHUP, SIGINT }) {
            std::signal(signal, SIG_DFL); // which nohup may have changed
            QtMainLoop loop;
            int told = 0;
            const TerminationSignals signals(loop, [&] { ++told; });

            std::raise(signal);

            EXPECT_EQ(told, 0) << signal; // not from within the handler
            EXPECT_TRUE(waitUntil([&] { return told == 1; })) << signal;
        }
    }

    TEST(TerminationSignalsTest, ASecondCtrlCEndsAProgramWhoseLoopIsStuck)
    {
        QtMainLoop loop;
        const TerminationSignals signals(loop, [] {});

        EXPECT_EXIT(
            {
                std::raise(SIGINT);
                std::raise(SIGINT);
            },
            testing::KilledBySignal(SIGINT), "");
    }

    TEST(TerminationSignalsTest, ATerminalThatTellsTwiceThatItGoesInterruptsNothing)
    {
        std::signal(SIGHUP, SIG_DFL);
        QtMainLoop loop;
        int told = 0;
        const TerminationSignals signals(loop, [&] { ++told; });

        std::raise(SIGHUP);
        std::raise(SIGHUP);

        EXPECT_TRUE(waitUntil([&] { return told == 2; }));
    }

    TEST(TerminationSignalsTest, ASignalThatWasIgnoredStaysIgnored)
    {
        std::signal(SIGHUP, SIG_IGN); // as nohup does
        QtMainLoop loop;
        int told = 0;
        {
            const TerminationSignals signals(loop, [&] { ++told; });
            std::raise(SIGHUP);
            std::raise(SIGINT);
            EXPECT_TRUE(waitUntil([&] { return told == 1; }));
        }

        EXPECT_EQ(std::signal(SIGHUP, SIG_DFL), SIG_IGN);
        EXPECT_EQ(told, 1);
    }

    /// Whether a write to a pipe that nobody reads fails, and says why.
    bool isBrokenPipeToldOf()
    {
        std::array<int, 2> ends {};
        if (::pipe(ends.data()) != 0)
            return false;
        ::close(ends[0]);
        return ::write(ends[1], "x", 1) < 0 && errno == EPIPE;
    }

    TEST(TerminationSignalsTest, AWriteThatNobodyReadsFailsAndEndsNothing)
    {
        EXPECT_EXIT(
            {
                surviveBrokenPipes();
                ::_exit(isBrokenPipeToldOf() ? EXIT_SUCCESS : EXIT_FAILURE);
            },
            testing::ExitedWithCode(EXIT_SUCCESS), "");
    }

} // namespace
} // namespace korvane
