#include "platform/qt/QtMainLoop.h"

#include "support/EventLoop.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <array>
#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using test::waitUntil;

    class Pipe {
    public:
        Pipe() { m_isOpen = ::pipe(m_ends.data()) == 0; }
        Pipe(const Pipe&) = delete;
        Pipe& operator=(const Pipe&) = delete;
        ~Pipe()
        {
            ::close(m_ends[0]);
            closeWriting();
        }

        int reading() const { return m_ends[0]; }
        bool write(char byte) { return m_isOpen && ::write(m_ends[1], &byte, 1) == 1; }
        char read()
        {
            char byte = 0;
            return ::read(m_ends[0], &byte, 1) == 1 ? byte : '\0';
        }
        void closeWriting()
        {
            if (m_isOpen)
                ::close(m_ends[1]);
            m_isOpen = false;
        }

    private:
        std::array<int, 2> m_ends {};
        bool m_isOpen = false;
    };

    TEST(QtMainLoopTest, PostedTasksRunOnTheNextTurnInTheirOrder)
    {
        QtMainLoop loop;
        std::string ran;

        loop.post([&] { ran += 'a'; });
        loop.post([&] { ran += 'b'; });
        const auto before = ran;

        EXPECT_TRUE(waitUntil([&] { return ran.size() == 2; }));
        EXPECT_EQ(before, "");
        EXPECT_EQ(ran, "ab");
    }

    TEST(QtMainLoopTest, ATaskThatPostsItselfForeverLetsTimersRun)
    {
        QtMainLoop loop;
        bool isOver = false;
        std::function<void()> again = [&] { loop.post(again); };
        loop.post(again);

        const auto timer = loop.after(5ms, [&] { isOver = true; });

        EXPECT_TRUE(waitUntil([&] { return isOver; }));
    }

    TEST(QtMainLoopTest, ADelayRunsItsTaskOnceAndNotTooEarly)
    {
        QtMainLoop loop;
        int runs = 0;
        const auto begun = std::chrono::steady_clock::now();
        std::chrono::steady_clock::duration took {};

        const auto timer = loop.after(30ms, [&] {
            ++runs;
            took = std::chrono::steady_clock::now() - begun;
        });
        bool isLongOver = false;
        const auto end = loop.after(90ms, [&] { isLongOver = true; });

        EXPECT_TRUE(waitUntil([&] { return isLongOver; }));
        EXPECT_EQ(runs, 1);
        EXPECT_GE(took, 30ms);
    }

    TEST(QtMainLoopTest, ADelayWhoseTimerIsDestroyedNeverRuns)
    {
        QtMainLoop loop;
        bool hasRun = false;
        bool isOver = false;

        {
            const auto timer = loop.after(1ms, [&] { hasRun = true; });
        }
        const auto end = loop.after(20ms, [&] { isOver = true; });

        EXPECT_TRUE(waitUntil([&] { return isOver; }));
        EXPECT_FALSE(hasRun);
    }

    TEST(QtMainLoopTest, ATimerThatHasFiredIsActiveUntilItIsStopped)
    {
        QtMainLoop loop;
        bool hasRun = false;
        auto timer = loop.after(1ms, [&] { hasRun = true; });

        EXPECT_TRUE(waitUntil([&] { return hasRun; }));

        EXPECT_TRUE(timer.isActive());
        timer.stop();
        EXPECT_FALSE(timer.isActive());
    }

    TEST(QtMainLoopTest, StoppingADelayThatHasFiredStopsNoLaterOne)
    {
        QtMainLoop loop;
        bool hasFirstRun = false;
        bool hasSecondRun = false;
        auto first = loop.after(1ms, [&] { hasFirstRun = true; });
        EXPECT_TRUE(waitUntil([&] { return hasFirstRun; }));

        const auto second = loop.after(1ms, [&] { hasSecondRun = true; });
        first.stop();

        EXPECT_TRUE(waitUntil([&] { return hasSecondRun; }));
    }

    TEST(QtMainLoopTest, ARepetitionRunsUntilItStopsItself)
    {
        QtMainLoop loop;
        int runs = 0;
        bool isOver = false;
        Timer timer;
        Timer end;

        timer = loop.every(2ms, [&] {
            if (++runs == 3) {
                timer.stop();
                end = loop.after(30ms, [&] { isOver = true; });
            }
        });

        EXPECT_TRUE(waitUntil([&] { return isOver; }));
        EXPECT_EQ(runs, 3);
    }

    TEST(QtMainLoopTest, ATaskMayReplaceItsOwnTimer)
    {
        QtMainLoop loop;
        bool hasReplacementRun = false;
        Timer timer;

        timer
            = loop.after(1ms, [&] { timer = loop.after(1ms, [&] { hasReplacementRun = true; }); });

        EXPECT_TRUE(waitUntil([&] { return hasReplacementRun; }));
    }

    TEST(QtMainLoopTest, AWatchRunsWhenThereIsSomethingToRead)
    {
        QtMainLoop loop;
        Pipe pipe;
        std::string read;
        const auto watch = loop.watch(pipe.reading(), [&] { read += pipe.read(); });

        EXPECT_TRUE(pipe.write('x'));

        EXPECT_TRUE(waitUntil([&] { return !read.empty(); }));
        EXPECT_EQ(read, "x");
    }

    TEST(QtMainLoopTest, AWatchRunsWhenTheOtherSideHasGone)
    {
        QtMainLoop loop;
        Pipe pipe;
        bool hasRun = false;
        Timer watch;
        watch = loop.watch(pipe.reading(), [&] {
            hasRun = true;
            watch.stop();
        });

        pipe.closeWriting();

        EXPECT_TRUE(waitUntil([&] { return hasRun; }));
    }

    TEST(QtMainLoopTest, AWatchThatIsStoppedHearsNothingMore)
    {
        QtMainLoop loop;
        Pipe pipe;
        int runs = 0;
        bool isOver = false;
        auto watch = loop.watch(pipe.reading(), [&] { ++runs; });

        watch.stop();
        EXPECT_TRUE(pipe.write('x'));
        const auto end = loop.after(20ms, [&] { isOver = true; });

        EXPECT_TRUE(waitUntil([&] { return isOver; }));
        EXPECT_EQ(runs, 0);
    }

    TEST(QtMainLoopTest, WhatIsPendingEndsWithTheLoop)
    {
        int runs = 0;
        bool isOver = false;
        auto loop = std::make_unique<QtMainLoop>();
        const auto late = loop->after(1ms, [&] { ++runs; });
        loop->post([&] { ++runs; });

        loop.reset();
        QtMainLoop other;
        const auto end = other.after(20ms, [&] { isOver = true; });

        EXPECT_TRUE(waitUntil([&] { return isOver; }));
        EXPECT_EQ(runs, 0);
    }

    TEST(QtMainLoopTest, ItsClockIsTheWallClock)
    {
        QtMainLoop loop;
        const auto before
            = std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());

        const auto now = loop.now();

        EXPECT_GE(now, before);
        EXPECT_LE(now, std::chrono::system_clock::now());
    }

} // namespace
} // namespace korvane
