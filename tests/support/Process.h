#pragma once

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <functional>
#include <utility>

namespace korvane::test {

/// Another process. It is ended with us, if it has not ended by itself.
class Process {
public:
    /// @param body  what it does; it returns the exit status
    explicit Process(const std::function<int()>& body)
        : m_id(::fork())
    {
        if (m_id == 0)
            ::_exit(body());
    }
    ~Process()
    {
        if (m_id > 0) {
            ::kill(m_id, SIGKILL);
            ::waitpid(m_id, nullptr, 0);
        }
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    void signal(int number) const { ::kill(m_id, number); }
    /// Comes back when the kernel says that it stands still.
    void stop() const
    {
        signal(SIGSTOP);
        int status = 0;
        ::waitpid(m_id, &status, WUNTRACED);
        ASSERT_TRUE(WIFSTOPPED(status));
    }
    /// Its exit status; -1 when it was killed.
    int wait()
    {
        int status = 0;
        ::waitpid(std::exchange(m_id, 0), &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    pid_t m_id;
};

/// A word from one process to another that something is ready.
class Bell {
public:
    Bell() { EXPECT_EQ(::pipe2(m_ends.data(), O_CLOEXEC), 0); }
    ~Bell()
    {
        for (const auto end : m_ends)
            ::close(end);
    }
    Bell(const Bell&) = delete;
    Bell& operator=(const Bell&) = delete;

    void ring() const { EXPECT_EQ(::write(m_ends[1], "!", 1), 1); }
    bool wait() const
    {
        pollfd entry { m_ends[0], POLLIN, 0 };
        char rung = 0;
        return ::poll(&entry, 1, 20'000) == 1 && ::read(m_ends[0], &rung, 1) == 1;
    }

private:
    std::array<int, 2> m_ends {};
};

} // namespace korvane::test
