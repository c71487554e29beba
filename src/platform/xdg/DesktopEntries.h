#pragma once

#include "model/MainLoop.h"
#include "model/Signal.h"
#include "platform/xdg/FolderWatch.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace korvane {

/// An installed application, as its desktop entry tells (freedesktop Desktop Entry Specification).
struct DesktopEntry {
    /// Its identifier, without ".desktop".
    std::string id;
    /// Its name in the user's language.
    std::string name;
    /// It is of the category "TerminalEmulator".
    bool isTerminal = false;
    /// Name of its icon in the user's theme, or the whole path of a picture; empty: none.
    std::string icon {};
    /// Where the entry lies.
    std::filesystem::path file {};
};

/// What a window tells of the program behind it; empty where it tells nothing.
struct ProgramHints {
    std::string desktopFile {};    ///< what the program says its desktop entry is
    std::string applicationId {};  ///< the identifier that GTK gives to its applications
    std::string windowClass {};    ///< the class part of WM_CLASS (ICCCM 4.1.2.5)
    std::string windowInstance {}; ///< the instance part of WM_CLASS
    std::string executable {};     ///< base name of the program file
};

/// The installed applications. Their entries are read when they are first asked for, and again
/// after any of the folders has changed.
class DesktopEntries {
public:
    /// @param folders  where entries lie, those of the user first: of two entries with the same
    ///                 identifier the first is meant
    DesktopEntries(MainLoop& loop, std::vector<std::filesystem::path> folders);

    /// The folders that the session names: "applications" in $XDG_DATA_HOME and in each of
    /// $XDG_DATA_DIRS (XDG Base Directory Specification). Those to which Flatpak and snap export
    /// come last, where the session, as one that began before they were installed, does not name them.
    static std::vector<std::filesystem::path> standardFolders();

    /// The application that the hints speak of. What a program says of itself on purpose comes
    /// before what happens to be called alike; none when nothing fits.
    std::optional<DesktopEntry> find(const ProgramHints& hints);
    /// The application with exactly this identifier.
    std::optional<DesktopEntry> withId(const std::string& id);
    /// The applications that menus show, in no order.
    std::vector<DesktopEntry> shown();
    /// The entry in a file that may lie anywhere; none where there is no application to read in it.
    std::optional<DesktopEntry> in(const std::filesystem::path& file) const;
    const std::vector<std::filesystem::path>& folders() const { return m_folders; }

    /// An application has been installed, changed or removed, and none has been asked for since.
    Signal<> changed;

private:
    using Index = std::unordered_map<std::string, std::size_t>;

    struct Known;

    void ensureRead();
    void read();
    std::vector<std::filesystem::path> foldersWithSubfolders() const;
    void readFolder(const std::filesystem::path& folder, std::vector<std::string>& seenIds);
    static std::optional<Known> readFile(const std::filesystem::path& file, std::string id);
    void buildIndexes();
    const DesktopEntry* at(const Index& index, const std::string& key) const;

    /// An entry, with what is needed to find it.
    struct Known {
        DesktopEntry entry;
        std::string startupClass;
        std::string executable;
        bool isShown = true;
    };

    std::vector<std::filesystem::path> m_folders;
    bool m_isStale = true;
    std::vector<Known> m_known;
    Index m_byId;
    Index m_byIdWithoutCase;
    Index m_byLastPartOfId;
    Index m_byStartupClass;
    Index m_byStartupClassWithoutCase;
    Index m_byExecutable;
    FolderWatch m_watch;
    Connection m_changed;
};

} // namespace korvane
