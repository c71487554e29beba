#include "platform/xdg/FolderWatch.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include <sys/inotify.h>
#include <unistd.h>

namespace korvane {

namespace {
    constexpr std::uint32_t fileChanges = IN_CLOSE_WRITE | IN_CREATE | IN_DELETE | IN_MOVED_FROM
        | IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
    constexpr std::uint32_t folderAppears = IN_CREATE | IN_MOVED_TO | IN_ONLYDIR;

    bool contains(const std::vector<int>& watches, int watch)
    {
        return std::ranges::find(watches, watch) != watches.end();
    }
} // namespace

FolderWatch::FolderWatch(MainLoop& loop)
    : m_descriptor(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    if (m_descriptor >= 0)
        m_readable = loop.watch(m_descriptor, [this] { readEvents(); });
}

FolderWatch::~FolderWatch()
{
    m_readable.stop();
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

void FolderWatch::setFolders(const std::vector<std::filesystem::path>& folders)
{
    if (m_descriptor < 0)
        return;
    const auto before = m_watches;
    const auto aboveBefore = m_watchesAbove;
    m_watches.clear();
    m_watchesAbove.clear();
    for (const auto& folder : folders)
        add(folder);

    // A folder that stays gets its old number again, so the rest can go only now.
    const auto drop = [this](int watch) {
        if (!contains(m_watches, watch) && !contains(m_watchesAbove, watch))
            ::inotify_rm_watch(m_descriptor, watch);
    };
    std::ranges::for_each(before, drop);
    std::ranges::for_each(aboveBefore, drop);
}

void FolderWatch::add(const std::filesystem::path& folder)
{
    const auto watch = ::inotify_add_watch(m_descriptor, folder.c_str(), fileChanges);
    if (watch >= 0) {
        m_watches.push_back(watch);
        return;
    }
    for (auto above = folder.parent_path(); !above.empty(); above = above.parent_path()) {
        // IN_MASK_ADD: the folder above may be one of those that are watched for themselves.
        const auto watchAbove
            = ::inotify_add_watch(m_descriptor, above.c_str(), folderAppears | IN_MASK_ADD);
        if (watchAbove >= 0) {
            m_watchesAbove.push_back(watchAbove);
            return;
        }
        if (above == above.parent_path())
            return;
    }
}

void FolderWatch::readEvents()
{
    alignas(inotify_event) std::array<char, 4096> buffer {};
    bool isRelevant = false;
    for (;;) {
        const auto size = ::read(m_descriptor, buffer.data(), buffer.size());
        if (size <= 0)
            break;
        for (std::size_t at = 0; at + sizeof(inotify_event) <= static_cast<std::size_t>(size);) {
            inotify_event event {};
            std::memcpy(&event, buffer.data() + at, sizeof event);
            at += sizeof event + event.len;
            // Above a missing folder only new folders matter: files come and go there all day.
            isRelevant = isRelevant || (event.mask & (IN_ISDIR | IN_Q_OVERFLOW)) != 0
                || contains(m_watches, event.wd);
        }
    }
    if (isRelevant)
        changed();
}

} // namespace korvane
