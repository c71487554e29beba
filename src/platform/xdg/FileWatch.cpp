#include "platform/xdg/FileWatch.h"

#include <sys/inotify.h>

#include <array>
#include <cstring>
#include <deque>
#include <system_error>
#include <utility>

namespace korvane {

namespace {
    namespace fs = std::filesystem;

    /// More links than any real path has: the kernel's own limit.
    constexpr int mostLinks = 40;
    constexpr int mostRounds = 8;

    constexpr std::uint32_t interest = IN_ONLYDIR | IN_CLOSE_WRITE | IN_CREATE | IN_DELETE
        | IN_MOVED_FROM | IN_MOVED_TO | IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF;

    void pushFront(std::deque<std::string>& parts, const fs::path& path)
    {
        const auto relative = path.relative_path();
        parts.insert(parts.begin(), relative.begin(), relative.end());
    }
} // namespace

FileWatch::FileWatch(fs::path path, MainLoop& loop, std::function<void()> onChange)
    : m_path(std::move(path))
    , m_onChange(std::move(onChange))
    , m_inotify(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    if (!m_inotify.isOpen())
        return;
    follow();
    m_reading = loop.watch(m_inotify.number(), [this] { readEvents(); });
}

/// Walks the path as the kernel would, and notes each folder in which the way could change: where a
/// link stands, where the way ends, and where the file is.
FileWatch::Places FileWatch::placesOnTheWay() const
{
    Places places;
    fs::path folder = "/";
    std::deque<std::string> parts;
    pushFront(parts, m_path);
    auto links = 0;
    while (!parts.empty()) {
        const auto name = parts.front();
        parts.pop_front();
        const auto next = folder / name;
        std::error_code error;
        const auto status = fs::symlink_status(next, error);
        if (fs::is_symlink(status) && ++links <= mostLinks) {
            places[folder].insert(name);
            const auto target = fs::read_symlink(next, error);
            if (target.is_absolute())
                folder = "/";
            pushFront(parts, target);
        } else if (fs::is_directory(status) && !parts.empty()) {
            folder = next;
        } else {
            places[folder].insert(name);
            break;
        }
    }
    return places;
}

void FileWatch::follow()
{
    std::map<int, std::set<std::string>> watches;
    Places places;
    // Again while the way changes under our feet: a folder that was made between the walk and the
    // watch would never be told of. Bounded, should somebody change it without end.
    for (auto round = 0; round < mostRounds; ++round) {
        places = placesOnTheWay();
        m_isComplete = true;
        for (const auto& [folder, names] : places) {
            const auto watch = ::inotify_add_watch(m_inotify.number(), folder.c_str(), interest);
            if (watch >= 0)
                watches[watch].insert(names.begin(), names.end());
            else
                m_isComplete = false;
        }
        if (places == placesOnTheWay())
            break;
    }
    for (const auto& [watch, names] : m_watches) {
        if (!watches.contains(watch))
            ::inotify_rm_watch(
                m_inotify.number(), watch); // fails when the folder has gone: all right
    }
    m_watches = std::move(watches);
}

bool FileWatch::concernsUs(int watch, const std::string& name) const
{
    const auto found = m_watches.find(watch);
    // An event without a name is about the folder itself.
    return found != m_watches.end() && (name.empty() || found->second.contains(name));
}

void FileWatch::readEvents()
{
    alignas(inotify_event) std::array<char, 4096> buffer {};
    auto isConcerned = false;
    for (;;) {
        const auto size = ::read(m_inotify.number(), buffer.data(), buffer.size());
        if (size <= 0)
            break;
        for (std::size_t at = 0; at < static_cast<std::size_t>(size);) {
            inotify_event event {};
            std::memcpy(&event, buffer.data() + at, sizeof event);
            const char* const name = buffer.data() + at + sizeof event;
            isConcerned |= (event.mask & IN_Q_OVERFLOW) != 0
                || concernsUs(event.wd, event.len > 0 ? name : "");
            at += sizeof event + event.len;
        }
    }
    if (!isConcerned)
        return;
    follow();
    m_onChange();
}

} // namespace korvane
