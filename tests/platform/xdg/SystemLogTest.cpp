#include "platform/xdg/SystemLog.h"

#include "support/SmallDisk.h"

#include <gtest/gtest.h>

#include <poll.h>
#include <pty.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <functional>
#include <string>

namespace korvane {
namespace {

    /// What a child process says about itself by its exit status; none of them is 0 or 1.
    constexpr auto isRight = 10;
    constexpr auto isWrong = 11;
    constexpr auto isNotPossible = 12;

    int runInChild(const std::function<int()>& body)
    {
        const auto child = ::fork();
        if (child == 0)
            ::_exit(body());
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    /// Gives this process a /dev of its own, so that the log of the machine hears nothing of it.
    bool enterPrivateDev()
    {
        return test::takeOwnMounts() && ::mount("none", "/dev", "tmpfs", 0, "size=64k") == 0;
    }

    int listenAsSystemLog()
    {
        const auto log = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        sockaddr_un address {};
        address.sun_family = AF_UNIX;
        std::string_view("/dev/log").copy(address.sun_path, sizeof address.sun_path - 1);
        return ::bind(log, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 ? log
                                                                                             : -1;
    }

    std::string readOnce(int descriptor)
    {
        std::array<char, 1024> buffer {};
        pollfd entry { descriptor, POLLIN, 0 };
        if (::poll(&entry, 1, 20'000) != 1)
            return "nothing";
        const auto size = ::read(descriptor, buffer.data(), buffer.size());
        return { buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)) };
    }

    TEST(SystemLogTest, ALineReachesTheSystemLogUnderOurName)
    {
        const auto status = runInChild([] {
            if (!enterPrivateDev())
                return isNotPossible;
            const auto log = listenAsSystemLog();
            if (log < 0)
                return isNotPossible;

            SystemLog().line("Korvane: 100 % of it, with %s and %n");

            const auto message = readOnce(log);
            // <13>: facility "user" (1), severity "notice" (5), as 1 * 8 + 5 (RFC 3164).
            const auto hasHead = message.starts_with("<13>")
                && message.find(" korvane[" + std::to_string(::getpid()) + "]: ")
                    != std::string::npos;
            return hasHead && message.ends_with("]: Korvane: 100 % of it, with %s and %n")
                ? isRight
                : isWrong;
        });

        if (status == isNotPossible)
            GTEST_SKIP() << "a private /dev is not allowed here";
        EXPECT_EQ(status, isRight);
    }

    TEST(SystemLogTest, APersonAtATerminalReadsTheLineToo)
    {
        int terminal = -1;
        int program = -1;
        ASSERT_EQ(::openpty(&terminal, &program, nullptr, nullptr, nullptr), 0);

        EXPECT_EQ(runInChild([program] {
            ::dup2(program, STDERR_FILENO);
            SystemLog().line("Korvane: a line");
            return isRight;
        }),
            isRight);

        EXPECT_EQ(readOnce(terminal), "Korvane: a line\r\n"); // as a terminal shows a line feed
        ::close(terminal);
        ::close(program);
    }

    TEST(SystemLogTest, AFileOnStandardErrorIsNotWrittenTo)
    {
        std::array<int, 2> pipe {};
        ASSERT_EQ(::pipe(pipe.data()), 0);

        EXPECT_EQ(runInChild([&pipe] {
            ::dup2(pipe[1], STDERR_FILENO);
            SystemLog().line("Korvane: a line");
            return isRight;
        }),
            isRight);
        ::close(pipe[1]);

        EXPECT_EQ(readOnce(pipe[0]), "");
        ::close(pipe[0]);
    }

} // namespace
} // namespace korvane
