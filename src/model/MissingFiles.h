#pragma once

#include "model/MainLoop.h"
#include "model/Signal.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace korvane {

/// Which of the files that clips name are gone. A path may lead to a disk that does not answer, so the
/// question is asked in a thread of its own and nobody waits for the answer: until it comes, a file is
/// taken to be there. With a disk that never answers, that thread is all that hangs.
class MissingFiles {
public:
    /// Whether there is nothing at a path; called in another thread.
    using Probe = std::function<bool(const std::string& path)>;

    explicit MissingFiles(MainLoop& loop, Probe probe = nothingAt);
    ~MissingFiles();
    MissingFiles(const MissingFiles&) = delete;
    MissingFiles& operator=(const MissingFiles&) = delete;

    /// As far as is known. The first question since the last `askAgain` has the answer found out.
    bool isMissing(const std::string& path);
    /// From now on each answer is found out anew; until then the last one holds.
    void askAgain();

    /// An answer differs from what was told.
    Signal<> changed;

    /// The path leads nowhere. One that cannot be followed, for want of rights, may lead somewhere.
    static bool nothingAt(const std::string& path);

private:
    struct Known {
        bool isMissing = false;
        bool isAsked = false;
    };
    struct Exchange;

    void take();

    std::map<std::string, Known> m_known;
    std::shared_ptr<Exchange> m_exchange; // the thread may outlive us
    Timer m_answered;
};

} // namespace korvane
