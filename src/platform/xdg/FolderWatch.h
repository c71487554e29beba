#pragma once

#include "model/MainLoop.h"
#include "model/Signal.h"

#include <filesystem>
#include <vector>

namespace korvane {

/// Tells when files appear in, change in or vanish from a set of folders (inotify). Where the
/// system refuses a watch, that folder's changes go untold.
class FolderWatch {
public:
    explicit FolderWatch(MainLoop& loop);
    ~FolderWatch();
    FolderWatch(const FolderWatch&) = delete;
    FolderWatch& operator=(const FolderWatch&) = delete;

    /// Watches these folders from now on, and no others. For one that does not exist the nearest
    /// folder above it is watched, so that its making is told.
    void setFolders(const std::vector<std::filesystem::path>& folders);

    /// Something has changed; told once for all that happened since the last time.
    Signal<> changed;

private:
    void add(const std::filesystem::path& folder);
    void readEvents();

    int m_descriptor;
    std::vector<int> m_watches;
    std::vector<int> m_watchesAbove; // of folders that do not exist yet
    Timer m_readable;
};

} // namespace korvane
