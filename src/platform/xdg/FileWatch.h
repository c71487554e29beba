#pragma once

#include "model/Files.h"
#include "model/MainLoop.h"

#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <string>

namespace korvane {

/// Tells when what lies under a path may have changed: the file edited in place, replaced, removed
/// or made, a folder on the way to it made, moved or replaced, a link on the way to it pointed
/// elsewhere (inotify). It may tell too often, never too seldom; only changes on this machine count.
class FileWatch {
public:
    /// @param path      absolute; nothing of it need exist
    /// @param onChange  called on the main loop after the watch has followed the change
    FileWatch(std::filesystem::path path, MainLoop& loop, std::function<void()> onChange);
    FileWatch(const FileWatch&) = delete;
    FileWatch& operator=(const FileWatch&) = delete;

    /// False when the system has no more watches to give.
    bool isActive() const { return m_isComplete; }

private:
    /// A folder, and the names in it that lie on the way to the file.
    using Places = std::map<std::filesystem::path, std::set<std::string>>;

    Places placesOnTheWay() const;
    void follow();
    void readEvents();
    bool concernsUs(int watch, const std::string& name) const;

    std::filesystem::path m_path;
    std::function<void()> m_onChange;
    Descriptor m_inotify;
    std::map<int, std::set<std::string>> m_watches;
    bool m_isComplete = false;
    Timer m_reading; // last, so that it ends first
};

} // namespace korvane
