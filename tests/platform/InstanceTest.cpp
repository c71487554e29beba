#include "platform/Instance.h"

#include "platform/UnixSocket.h"
#include "support/PollLoop.h"
#include "support/Process.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <fstream>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace korvane {
namespace {

    using namespace std::chrono_literals;
    using Outcome = InstanceStart::Outcome;
    using test::Bell;
    using test::modeOf;
    using test::PollLoop;
    using test::Process;
    using test::TempFolder;

    /// The first Korvane: hears wishes on a loop of this process.
    struct First {
        explicit First(const std::filesystem::path& folder)
            : start(startInstance(folder, Wish::show))
        {
            if (start.outcome != Outcome::first)
                return;
            instance.emplace(std::move(*start.claim), loop);
            connection = instance->wished.connect([this](Wish wish) { wishes.push_back(wish); });
        }

        /// What a start in another process comes to, while this one's loop runs.
        InstanceStart another(const std::filesystem::path& folder, Wish wish)
        {
            auto result = std::async(
                std::launch::async, [&folder, wish] { return startInstance(folder, wish); });
            EXPECT_TRUE(loop.runUntil(
                [&result] { return result.wait_for(0s) == std::future_status::ready; }));
            return result.get();
        }

        PollLoop loop;
        InstanceStart start;
        std::optional<Instance> instance;
        std::vector<Wish> wishes;
        Connection connection;
    };

    Descriptor connectedTo(const TempFolder& folder)
    {
        return connectTo(folder.path() / "korvane.socket");
    }

    void say(const Descriptor& connection, std::string_view text)
    {
        EXPECT_EQ(::send(connection.number(), text.data(), text.size(), MSG_NOSIGNAL),
            static_cast<ssize_t>(text.size()));
    }

    /// All that comes until the other end closes; none when it does not close yet.
    std::optional<std::string> heardUntilClosed(const Descriptor& connection)
    {
        std::string heard;
        std::array<char, 64> buffer {};
        for (;;) {
            const auto size = ::recv(connection.number(), buffer.data(), buffer.size(), 0);
            if (size > 0)
                heard.append(buffer.data(), static_cast<std::size_t>(size));
            else if (size == 0 || errno == ECONNRESET)
                return heard;
            else
                return std::nullopt;
        }
    }

    TEST(InstanceTest, TheFirstStartIsTheFirst)
    {
        const TempFolder folder;

        const auto start = startInstance(folder.path(), Wish::show);

        EXPECT_EQ(start.outcome, Outcome::first);
        EXPECT_TRUE(start.claim.has_value());
    }

    TEST(InstanceTest, SocketAndLockAreClosedToOthersWhateverTheUmask)
    {
        const TempFolder folder;
        const auto umaskBefore = ::umask(0);

        const auto start = startInstance(folder.path(), Wish::show);
        ::umask(umaskBefore);

        EXPECT_EQ(modeOf(folder.path() / "korvane.socket"), 0600U);
        EXPECT_EQ(modeOf(folder.path() / "korvane.lock"), 0600U);
    }

    TEST(InstanceTest, ASecondStartPassesEveryWishToTheFirst)
    {
        const TempFolder folder;
        First first(folder.path());
        const std::vector wishes { Wish::show, Wish::toggle, Wish::hide, Wish::quit };

        for (const auto wish : wishes)
            EXPECT_EQ(first.another(folder.path(), wish).outcome, Outcome::passed);

        EXPECT_EQ(first.wishes, wishes);
    }

    TEST(InstanceTest, AWishIsAnsweredWithOk)
    {
        const TempFolder folder;
        First first(folder.path());
        const auto connection = connectedTo(folder);

        say(connection, "toggle\n");
        std::optional<std::string> heard;

        EXPECT_TRUE(first.loop.runUntil(
            [&] { return (heard = heardUntilClosed(connection)).has_value(); }));
        EXPECT_EQ(heard, "ok\n");
        EXPECT_EQ(first.wishes, std::vector { Wish::toggle });
    }

    TEST(InstanceTest, AWishThatComesInPiecesIsHeardWhenItIsWhole)
    {
        const TempFolder folder;
        First first(folder.path());
        const auto connection = connectedTo(folder);
        first.loop.runReady();

        say(connection, "hi");
        first.loop.runReady();
        EXPECT_TRUE(first.wishes.empty());
        say(connection, "de\n");
        first.loop.runReady();

        EXPECT_EQ(first.wishes, std::vector { Wish::hide });
    }

    TEST(InstanceTest, AnUnknownWishIsRefusedAndFulfilsNothing)
    {
        const TempFolder folder;
        First first(folder.path());

        for (const std::string_view line : { "dance\n", "\n", "show \n", "SHOW\n" }) {
            const auto connection = connectedTo(folder);
            say(connection, line);
            first.loop.runReady();

            EXPECT_EQ(heardUntilClosed(connection), "unknown\n") << line;
        }
        EXPECT_TRUE(first.wishes.empty());
    }

    TEST(InstanceTest, ALineWithoutEndIsCutOff)
    {
        const TempFolder folder;
        First first(folder.path());
        const auto connection = connectedTo(folder);

        say(connection, std::string(4000, 's'));
        first.loop.runReady();

        EXPECT_TRUE(heardUntilClosed(connection).has_value());
        EXPECT_TRUE(first.wishes.empty());
    }

    TEST(InstanceTest, AVisitorThatClosesAtOnceDoesNoHarm)
    {
        const TempFolder folder;
        First first(folder.path());

        say(connectedTo(folder), "show\n"); // gone before it is heard, but it has said it
        static_cast<void>(connectedTo(folder));
        first.loop.runReady();

        EXPECT_EQ(first.wishes, std::vector { Wish::show });
        EXPECT_EQ(first.another(folder.path(), Wish::toggle).outcome, Outcome::passed);
    }

    TEST(InstanceTest, ASilentVisitorIsSentAwayAfterTwoSeconds)
    {
        const TempFolder folder;
        First first(folder.path());
        const auto connection = connectedTo(folder);
        first.loop.runReady();

        first.loop.advance(1999ms);
        EXPECT_EQ(heardUntilClosed(connection), std::nullopt);
        first.loop.advance(1ms);

        EXPECT_EQ(heardUntilClosed(connection), "");
    }

    TEST(InstanceTest, ManySilentVisitorsDoNotKeepAWishOutForGood)
    {
        const TempFolder folder;
        First first(folder.path());
        std::vector<Descriptor> silent;
        for (auto count = 0; count < 100; ++count) {
            silent.push_back(connectedTo(folder));
            first.loop.runReady();
        }
        EXPECT_EQ(heardUntilClosed(silent.front()), std::nullopt); // it may still speak
        EXPECT_EQ(heardUntilClosed(silent.back()), "");            // too many: sent away at once
        first.loop.advance(2s);

        EXPECT_EQ(first.another(folder.path(), Wish::show).outcome, Outcome::passed);
    }

    TEST(InstanceTest, ASlotMayEndTheInstance)
    {
        const TempFolder folder;
        First first(folder.path());
        first.connection = first.instance->wished.connect([&](Wish) { first.instance.reset(); });

        const auto second = first.another(folder.path(), Wish::quit);

        EXPECT_EQ(second.outcome, Outcome::passed);
        EXPECT_FALSE(first.instance.has_value());
    }

    TEST(InstanceTest, ProcessesOfOtherUsersAreNotHeard)
    {
        const passwd* const nobody = ::getpwnam("nobody");
        if (::geteuid() != 0 || nobody == nullptr)
            GTEST_SKIP() << "only root can become another user";
        const TempFolder folder;
        First first(folder.path());
        // Open to all, so that nothing but the look at the user can be what refuses.
        ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
        ASSERT_EQ(::chmod((folder.path() / "korvane.socket").c_str(), 0666), 0);

        Process stranger([&, user = nobody->pw_uid] {
            if (::setuid(user) != 0)
                return 2;
            const auto connection = connectedTo(folder);
            if (!connection.isOpen())
                return 3;
            static_cast<void>(::send(connection.number(), "quit\n", 5, MSG_NOSIGNAL));
            pollfd entry { connection.number(), POLLIN, 0 };
            ::poll(&entry, 1, 20'000);
            return heardUntilClosed(connection) == "" ? 0 : 4;
        });
        auto status = -1;
        auto ended = std::async(std::launch::async, [&] { status = stranger.wait(); });

        EXPECT_TRUE(
            first.loop.runUntil([&] { return ended.wait_for(0s) == std::future_status::ready; }));
        EXPECT_EQ(status, 0);
        EXPECT_TRUE(first.wishes.empty());
    }

    TEST(InstanceTest, AHungFirstIsGivenUpWithAClearLineAfterThePatience)
    {
        const TempFolder folder;
        const Bell ready;
        const Process hung([&] {
            const First first(folder.path());
            ready.ring();
            ::pause();
            return 0;
        });
        ASSERT_TRUE(ready.wait());
        hung.stop();
        const auto begin = std::chrono::steady_clock::now();

        const auto start = startInstance(folder.path(), Wish::show);

        const auto took = std::chrono::steady_clock::now() - begin;
        EXPECT_EQ(start.outcome, Outcome::failed);
        EXPECT_EQ(start.reason, "korvane: the running Korvane does not answer");
        EXPECT_GE(took, 1900ms);
        EXPECT_LT(took, 4s);
    }

    TEST(InstanceTest, AHungFirstIsNotReplacedEvenWhenItsLockFileIsLost)
    {
        const TempFolder folder;
        const First hung(folder.path()); // its loop does not run
        std::filesystem::remove(folder.path() / "korvane.lock");

        const auto start = startInstance(folder.path(), Wish::show, 100ms);

        EXPECT_EQ(start.outcome, Outcome::failed);
    }

    TEST(InstanceTest, WhatAKilledFirstLeavesBehindIsTakenOver)
    {
        const TempFolder folder;
        const Bell ready;
        Process killed([&] {
            const First first(folder.path());
            ready.ring();
            ::pause();
            return 0;
        });
        ASSERT_TRUE(ready.wait());
        killed.signal(SIGKILL);
        killed.wait();
        ASSERT_TRUE(std::filesystem::exists(folder.path() / "korvane.socket"));

        First next(folder.path());

        EXPECT_EQ(next.start.outcome, Outcome::first);
        EXPECT_EQ(next.another(folder.path(), Wish::toggle).outcome, Outcome::passed);
    }

    TEST(InstanceTest, AFileInTheSocketsPlaceIsReplaced)
    {
        const TempFolder folder;
        std::ofstream(folder.path() / "korvane.socket") << "no socket";

        EXPECT_EQ(startInstance(folder.path(), Wish::show).outcome, Outcome::first);
    }

    TEST(InstanceTest, ALinkInTheLocksPlaceIsNotFollowed)
    {
        const TempFolder folder;
        const auto target = folder.path() / "elsewhere";
        std::filesystem::create_symlink(target, folder.path() / "korvane.lock");

        const auto start = startInstance(folder.path(), Wish::show);

        EXPECT_EQ(start.outcome, Outcome::failed);
        EXPECT_FALSE(std::filesystem::exists(target));
    }

    TEST(InstanceTest, OfManyThatStartAtOnceOverAStaleSocketExactlyOneIsTheFirst)
    {
        constexpr auto count = 12;
        constexpr auto isFirst = 10;
        constexpr auto hasPassed = 20;
        for (auto round = 0; round < 10; ++round) {
            const TempFolder folder;
            { // as after a crash
                const auto listener = listenAt(folder.path() / "korvane.socket", 1);
            }
            std::array<int, 2> gate {};
            ASSERT_EQ(::pipe2(gate.data(), O_CLOEXEC), 0);
            std::array<std::unique_ptr<Process>, count> starters;
            for (auto& each : starters)
                each = std::make_unique<Process>([&] {
                    ::close(gate[1]);
                    char opened = 0;
                    static_cast<void>(!::read(gate[0], &opened, 1)); // until the gate is closed
                    First starter(folder.path());
                    if (starter.start.outcome == Outcome::passed)
                        return hasPassed;
                    const auto hasHeardAll = [&] { return starter.wishes.size() == count - 1; };
                    return starter.instance && starter.loop.runUntil(hasHeardAll) ? isFirst : 1;
                });

            ::close(gate[0]);
            ::close(gate[1]); // all at once
            std::array<int, count> statuses {};
            std::ranges::transform(
                starters, statuses.begin(), [](const auto& each) { return each->wait(); });

            EXPECT_EQ(std::ranges::count(statuses, isFirst), 1);
            EXPECT_EQ(std::ranges::count(statuses, hasPassed), count - 1);
        }
    }

    TEST(InstanceTest, AStartWhileTheFirstIsEndingBecomesTheNextFirst)
    {
        const TempFolder folder;
        First first(folder.path());
        ASSERT_EQ(first.another(folder.path(), Wish::quit).outcome, Outcome::passed);
        // It has been asked to quit and still cleans up: it hears nobody, and is not yet gone.
        auto next = std::async(
            std::launch::async, [&] { return startInstance(folder.path(), Wish::show); });
        EXPECT_FALSE(first.loop.runUntil(
            [&] { return next.wait_for(0s) == std::future_status::ready; }, 100ms));

        first.instance.reset();

        EXPECT_EQ(next.get().outcome, Outcome::first);
    }

    TEST(InstanceTest, ALostLockFileDoesNotMakeASecondFirst)
    {
        const TempFolder folder;
        First first(folder.path());
        std::filesystem::remove(folder.path() / "korvane.lock"); // a clean-up of old files

        const auto second = first.another(folder.path(), Wish::show);

        EXPECT_EQ(second.outcome, Outcome::passed);
        EXPECT_EQ(first.wishes, std::vector { Wish::show });
    }

    TEST(InstanceTest, TheEndRemovesTheSocket)
    {
        const TempFolder folder;
        {
            const First first(folder.path());
            ASSERT_TRUE(std::filesystem::exists(folder.path() / "korvane.socket"));
        }

        EXPECT_FALSE(std::filesystem::exists(folder.path() / "korvane.socket"));
    }

    TEST(InstanceTest, AFolderThatIsMissingIsAFailureWithAReason)
    {
        const TempFolder folder;

        const auto start = startInstance(folder.path() / "missing", Wish::show);

        EXPECT_EQ(start.outcome, Outcome::failed);
        EXPECT_NE(start.reason.find("No such file or directory"), std::string::npos);
    }

    TEST(InstanceTest, ChildrenThatAreStartedDoNotHoldTheLockOrTheSocket)
    {
        const TempFolder folder;
        auto start = startInstance(folder.path(), Wish::show);
        std::array<int, 2> held {};
        ASSERT_EQ(::pipe2(held.data(), O_CLOEXEC), 0);
        // Runs until its standard input is closed, like a file manager that we have started.
        Process child([&] {
            ::dup2(held[0], STDIN_FILENO);
            return ::execlp("cat", "cat", nullptr);
        });
        ::close(held[0]);

        start.claim.reset();
        const auto next = startInstance(folder.path(), Wish::show);

        EXPECT_EQ(next.outcome, Outcome::first);
        ::close(held[1]);
        EXPECT_EQ(child.wait(), 0);
    }

} // namespace
} // namespace korvane
