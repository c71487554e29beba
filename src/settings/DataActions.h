#pragma once

#include "model/Alerts.h"
#include "model/MainLoop.h"
#include "model/Signal.h"
#include "settings/FileCopy.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

namespace korvane {

class ClipStore;
class FileDialogs;

/// What the user can do with the history as a whole.
class DataActions {
public:
    DataActions(ClipStore& store, MainLoop& loop, FileDialogs& dialogs, Alerts& alerts);
    ~DataActions();
    DataActions(const DataActions&) = delete;
    DataActions& operator=(const DataActions&) = delete;

    /// Writes an export and asks where it shall be. A file that is there already stays, and a copy
    /// that fails is not told. Nothing is left in the folder for temporary files.
    void exportHistory();
    /// Asks for a file and takes in what is in it.
    void importHistory();
    /// Deletes all but the pinned clips, once the user has agreed.
    void clearHistory();

    enum class Work { none, exporting, importing };
    /// What is under way and may take longer than half a second: whoever shows it must do so before
    /// the call returns, as the program may then have no time for a while.
    Observable<Work> work { Work::none };

private:
    class TemporaryFile;

    void begin(Work what, std::int64_t bytes);
    void end();
    void copyTo(const std::filesystem::path& target);
    void take(const std::filesystem::path& file);
    /// The answer of a dialog: what it leads to, unless we have gone or the user has given up.
    std::function<void(std::optional<std::filesystem::path>)> whenChosen(
        std::function<void(const std::filesystem::path&)> then);

    ClipStore& m_store;
    MainLoop& m_loop;
    FileDialogs& m_dialogs;
    Alerts& m_alerts;
    bool m_isBusy = false; // one thing after the other: a dialog is open, or a copy under way
    std::unique_ptr<TemporaryFile> m_exported;
    std::optional<FileCopy> m_copy;
    /// Shared with the questions under way, whose answers come to nothing when we have gone before.
    std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true);
};

} // namespace korvane
