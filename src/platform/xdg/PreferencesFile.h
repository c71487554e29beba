#pragma once

#include "model/Preferences.h"
#include "platform/xdg/FileWatch.h"
#include "platform/xdg/PreferencesJson.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace korvane {

class Log;
class MainLoop;

/// The user's preferences, in one JSON file that a person may edit. It is read at once, and again
/// whenever somebody else has changed it; it is first written, and its folder made, when a
/// preference is first set. It is replaced as a whole (0600, in a folder made 0700), so that a crash
/// leaves the old preferences or the new ones; a link is followed and stays a link.
///
/// A file that does not parse counts as one without entries, and is kept beside, with ".bad" after
/// its name, before anything is written. What cannot be written is kept in memory, and written with
/// the next preference that is set. Both are logged, once.
class PreferencesFile : public Preferences {
public:
    PreferencesFile(std::filesystem::path file, MainLoop& loop, Log& log);
    PreferencesFile(const PreferencesFile&) = delete;
    PreferencesFile& operator=(const PreferencesFile&) = delete;

    std::optional<PreferenceValue> get(std::string_view key) const override;
    void set(std::string_view key, PreferenceValue value) override;
    void remove(std::string_view key) override;

private:
    using Values = std::map<std::string, PreferenceValue, std::less<>>;

    Values values() const;
    void put(std::string_view key, std::optional<PreferenceValue> value);
    void readAgain();
    void read();
    void write();
    bool keepBadFile(const std::filesystem::path& file);
    void logWriteFailure(const std::string& reason);

    std::filesystem::path m_file;
    Log& m_log;
    /// The file's bytes and entries as they were last read or written.
    std::string m_bytes;
    PreferencesTable m_table;
    /// What has been set or removed and is not in the file; it goes before the file's own entry.
    std::map<std::string, std::optional<PreferenceValue>, std::less<>> m_unwritten;
    bool m_isBad = false;
    bool m_isWriteFailureLogged = false;
    FileWatch m_watch; // last, so that it ends first
};

} // namespace korvane
