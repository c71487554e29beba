#include "platform/xdg/CanberraSoundPlayer.h"

#include "model/Log.h"
#include "model/Preferences.h"

#include <canberra.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>
#include <system_error>
#include <utility>

namespace korvane {

namespace {
    namespace fs = std::filesystem;

    /// While the server hangs, later sounds are dropped: nobody wants to hear them all at once.
    constexpr std::size_t mostWaiting = 4;
    constexpr std::chrono::milliseconds patienceAtEnd { 200 };

    struct Destroy {
        void operator()(ca_context* context) const { ca_context_destroy(context); }
    };
    using Context = std::unique_ptr<ca_context, Destroy>;

    Context makeContext()
    {
        ca_context* context = nullptr;
        if (ca_context_create(&context) == CA_SUCCESS)
            ca_context_change_props(context, CA_PROP_APPLICATION_NAME, "Korvane",
                CA_PROP_APPLICATION_ID, "com.VNT.Korvane", CA_PROP_MEDIA_ROLE, "event", nullptr);
        return Context(context);
    }

    int playFile(const Context& context, const fs::path& file)
    {
        if (!context)
            return CA_ERROR_OOM;
        return ca_context_play(context.get(), 0, CA_PROP_MEDIA_FILENAME, file.c_str(),
            CA_PROP_MEDIA_NAME, file.stem().c_str(), CA_PROP_CANBERRA_CACHE_CONTROL, "permanent",
            nullptr);
    }
} // namespace

/// Over which the two threads hand things to each other, under the lock.
struct CanberraSoundPlayer::Desk {
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<fs::path> files;
    int error = CA_SUCCESS; ///< the last failure
    bool isClosed = false;  ///< the player has gone
    bool isLeft = false;    ///< the thread has done with the library

    /// What the thread does.
    void serve()
    {
        auto context = makeContext();
        std::unique_lock lock(mutex);
        for (;;) {
            changed.wait(lock, [this] { return isClosed || !files.empty(); });
            if (isClosed)
                break;
            const auto file = std::move(files.front());
            files.pop_front();
            lock.unlock();
            const auto result = playFile(context, file);
            lock.lock();
            if (result != CA_SUCCESS)
                error = result;
        }
        lock.unlock();
        context.reset();
        lock.lock();
        isLeft = true;
        changed.notify_all();
    }
};

CanberraSoundPlayer::CanberraSoundPlayer(fs::path folder, Log& log)
    : m_folder(std::move(folder))
    , m_log(log)
{
}

CanberraSoundPlayer::~CanberraSoundPlayer()
{
    if (!m_desk)
        return;
    std::unique_lock lock(m_desk->mutex);
    m_desk->isClosed = true;
    m_desk->changed.notify_all();
    const auto isLeft
        = m_desk->changed.wait_for(lock, patienceAtEnd, [this] { return m_desk->isLeft; });
    lock.unlock();
    if (isLeft)
        m_thread.join();
    else
        m_thread.detach(); // the process ends soon, and the thread with it
}

void CanberraSoundPlayer::play(std::string_view name)
{
    // Only names that we know: a preference edited by hand is no path.
    if (std::ranges::find(soundNames, name) == soundNames.end())
        return;
    if (!m_desk) {
        m_desk = std::make_shared<Desk>();
        m_thread = std::thread([desk = m_desk] { desk->serve(); });
    }
    int error = CA_SUCCESS;
    {
        const std::scoped_lock lock(m_desk->mutex);
        error = m_desk->error;
        if (m_desk->files.size() < mostWaiting)
            m_desk->files.push_back(m_folder / (std::string(name) + ".wav"));
        m_desk->changed.notify_all();
    }
    if (error != CA_SUCCESS)
        logOnce(error);
}

void CanberraSoundPlayer::logOnce(int error)
{
    if (!std::exchange(m_isFailureLogged, true))
        m_log.line(std::string("Korvane: a sound cannot be played: ") + ca_strerror(error));
}

fs::path findSoundsFolder(const fs::path& program, const fs::path& sourceFolder)
{
    const auto installed = program.parent_path().parent_path() / "share/korvane/sounds";
    std::error_code error;
    return fs::is_directory(installed, error) ? installed : sourceFolder;
}

} // namespace korvane
