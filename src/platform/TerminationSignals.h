#pragma once

#include "model/Files.h"
#include "model/MainLoop.h"

#include <functional>

namespace korvane {

/// Ends the program in order when the system asks for it: SIGTERM at the end of a session, SIGHUP when the
/// terminal goes, SIGINT for Ctrl+C in it (signal(7)). A signal that the program was started to ignore stays
/// ignored. The second Ctrl+C ends the program at once, should the loop be stuck; a terminal that goes may
/// well tell so twice.
class TerminationSignals {
public:
    /// There may be one at a time.
    /// @param asked  called on the loop, once for each signal
    TerminationSignals(MainLoop& loop, std::function<void()> asked);
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

private:
    Descriptor m_reading;
    Descriptor m_writing;
    Timer m_watch;
};

/// From now on a write to a pipe that nobody reads fails, and does not end the process. Programs that we
/// start do not inherit it.
void surviveBrokenPipes();

} // namespace korvane
