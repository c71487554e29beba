#pragma once

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace korvane::test {

/// Runs the check in a process of its own and says whether it answered yes.
inline bool holdsInChild(const std::function<bool()>& check)
{
    const auto child = ::fork();
    if (child == 0)
        ::_exit(check() ? 0 : 1);
    int status = 0;
    return child > 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status)
        && WEXITSTATUS(status) == 0;
}

/// Gives this process mounts of its own: what it mounts, nobody else sees, and it goes when the
/// process ends. False when the system does not let us.
inline bool takeOwnMounts()
{
    const auto put = [](const char* file, std::string_view text) {
        const int descriptor = ::open(file, O_WRONLY | O_CLOEXEC);
        const bool isWritten = descriptor >= 0
            && ::write(descriptor, text.data(), text.size()) == static_cast<ssize_t>(text.size());
        ::close(descriptor);
        return isWritten;
    };
    const auto user = std::to_string(::geteuid());
    const auto group = std::to_string(::getegid());
    // Without the right to mount we take it in a world of our own, where we stay who we are.
    if (::unshare(CLONE_NEWNS) != 0
        && (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0 || !put("/proc/self/setgroups", "deny")
            || !put("/proc/self/uid_map", user + " " + user + " 1")
            || !put("/proc/self/gid_map", group + " " + group + " 1")))
        return false;
    return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

/// Puts a file system of so many bytes in the folder's place, for this process alone; false when
/// the system does not let us. It goes when the process ends.
inline bool mountSmallDisk(const std::filesystem::path& folder, std::size_t bytes)
{
    const auto options = "mode=0700,size=" + std::to_string(bytes);
    return takeOwnMounts() && ::mount("none", folder.c_str(), "tmpfs", 0, options.c_str()) == 0;
}

/// The next best thing where no file system may be mounted: a file may not grow beyond so many
/// bytes, and a write that reaches the limit fails half way.
inline bool limitFiles(std::size_t bytes)
{
    const rlimit limit { bytes, bytes };
    return ::signal(SIGXFSZ, SIG_IGN) != SIG_ERR && ::setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

} // namespace korvane::test
