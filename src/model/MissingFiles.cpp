#include "model/MissingFiles.h"

#include "model/Files.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace korvane {

/// What the two threads hand to each other.
struct MissingFiles::Exchange {
    Exchange(Probe asked)
        : probe(std::move(asked))
    {
    }

    const Probe probe;
    const Descriptor bell { ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK) };
    std::mutex mutex;
    std::deque<std::string> questions;
    std::vector<std::pair<std::string, bool>> answers;
    bool isAtWork = false;
    bool isAbandoned = false;

    void ask(const std::string& path, const std::shared_ptr<Exchange>& self)
    {
        const std::lock_guard lock(mutex);
        questions.push_back(path);
        if (!std::exchange(isAtWork, true))
            std::thread([self] { self->work(); }).detach();
    }

    /// Until there is nothing left to find out; then the thread ends.
    void work()
    {
        while (const auto path = next()) {
            const bool isMissing = probe(*path);
            const std::lock_guard lock(mutex);
            answers.emplace_back(*path, isMissing);
            const std::uint64_t one = 1;
            static_cast<void>(::write(bell.number(), &one, sizeof one));
        }
    }

    std::optional<std::string> next()
    {
        const std::lock_guard lock(mutex);
        isAtWork = !questions.empty() && !isAbandoned;
        if (!isAtWork)
            return std::nullopt;
        auto path = std::move(questions.front());
        questions.pop_front();
        return path;
    }

    std::vector<std::pair<std::string, bool>> takeAnswers()
    {
        std::uint64_t rung = 0;
        static_cast<void>(::read(bell.number(), &rung, sizeof rung));
        const std::lock_guard lock(mutex);
        return std::exchange(answers, {});
    }
};

MissingFiles::MissingFiles(MainLoop& loop, Probe probe)
    : m_exchange(std::make_shared<Exchange>(std::move(probe)))
    , m_answered(loop.watch(m_exchange->bell.number(), [this] { take(); }))
{
}

MissingFiles::~MissingFiles()
{
    const std::lock_guard lock(m_exchange->mutex);
    m_exchange->isAbandoned = true;
}

bool MissingFiles::isMissing(const std::string& path)
{
    auto& known = m_known[path];
    if (!std::exchange(known.isAsked, true))
        m_exchange->ask(path, m_exchange);
    return known.isMissing;
}

void MissingFiles::askAgain()
{
    // What is there need not be remembered for that.
    std::erase_if(m_known, [](const auto& entry) { return !entry.second.isMissing; });
    for (auto& [path, known] : m_known)
        known.isAsked = false;
}

void MissingFiles::take()
{
    bool hasChanged = false;
    for (const auto& [path, isMissing] : m_exchange->takeAnswers())
        hasChanged = std::exchange(m_known[path].isMissing, isMissing) != isMissing || hasChanged;
    if (hasChanged)
        changed();
}

bool MissingFiles::nothingAt(const std::string& path)
{
    return ::access(path.c_str(), F_OK) != 0 && (errno == ENOENT || errno == ENOTDIR);
}

} // namespace korvane
