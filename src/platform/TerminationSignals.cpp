#include "platform/TerminationSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

namespace korvane {

namespace {

    constexpr std::array signals { SIGTERM, SIGHUP, SIGINT };

    /// A handler is given nothing but the signal's number, so what it writes to stands here.
    volatile std::sig_atomic_t toldBy = -1;

    /// Does what alone is safe in a handler (signal-safety(7)): the loop does the rest.
    extern "C" void tellOfSignal(int)
    {
        const int before = errno;
        const char byte = 0;
        static_cast<void>(!::write(static_cast<int>(toldBy), &byte, 1));
        errno = before;
    }

    bool isIgnored(int signal)
    {
        struct sigaction now { };
        return ::sigaction(signal, nullptr, &now) == 0 && now.sa_handler == SIG_IGN;
    }

    void handle(int signal, void (*handler)(int))
    {
        struct sigaction action { };
        action.sa_handler = handler;
        action.sa_flags = SA_RESTART;
        if (signal == SIGINT)
            action.sa_flags |= static_cast<int>(SA_RESETHAND);
        ::sigaction(signal, &action, nullptr);
    }

} // namespace

TerminationSignals::TerminationSignals(MainLoop& loop, std::function<void()> asked)
{
    std::array<int, 2> ends {};
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return; // without one the signals end the program at once, as ever
    m_reading = Descriptor(ends[0]);
    m_writing = Descriptor(ends[1]);
    m_watch = loop.watch(m_reading.number(), [this, asked = std::move(asked)] {
        char byte = 0;
        while (::read(m_reading.number(), &byte, 1) == 1)
            asked();
    });
    toldBy = m_writing.number();
    for (const int signal : signals) {
        if (!isIgnored(signal))
            handle(signal, tellOfSignal);
    }
}

TerminationSignals::~TerminationSignals()
{
    for (const int signal : signals) {
        if (!isIgnored(signal))
            handle(signal, SIG_DFL);
    }
    toldBy = -1;
}

void surviveBrokenPipes()
{
    // Not SIG_IGN, deliberately: that is inherited by the programs that we start.
    struct sigaction action { };
    action.sa_handler = [](int) {};
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGPIPE, &action, nullptr);
}

} // namespace korvane
