#include "settings/DataActions.h"

#include "model/ClipStore.h"
#include "settings/DataTexts.h"
#include "settings/FileDialogs.h"

#include <algorithm>
#include <string>
#include <system_error>
#include <utility>

namespace korvane {

namespace {

    /// What a slow disk writes in half a second.
    constexpr std::int64_t longWork = 8L * 1024 * 1024;

    /// As the dialog is for JSON files only, the file gets the ending of one.
    std::filesystem::path asJson(std::filesystem::path path)
    {
        auto ending = path.extension().string();
        std::transform(ending.begin(), ending.end(), ending.begin(),
            [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
        return ending == ".json" ? path : path += ".json";
    }

    std::int64_t sizeOf(const std::filesystem::path& file)
    {
        std::error_code error;
        const auto size = std::filesystem::file_size(file, error);
        return error ? 0 : static_cast<std::int64_t>(size);
    }

    /// What the list takes in a file, about: of a large clip only its beginning is in it.
    std::int64_t listSize(const ClipStore& store)
    {
        std::int64_t bytes = 0;
        for (const auto& clip : store.clips())
            bytes += static_cast<std::int64_t>(clip.text.size());
        return bytes;
    }

} // namespace

/// Removes the file when it ends.
class DataActions::TemporaryFile {
public:
    explicit TemporaryFile(std::filesystem::path path)
        : m_path(std::move(path))
    {
    }
    ~TemporaryFile()
    {
        std::error_code ignored;
        std::filesystem::remove(m_path, ignored);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

DataActions::DataActions(ClipStore& store, MainLoop& loop, FileDialogs& dialogs, Alerts& alerts)
    : m_store(store)
    , m_loop(loop)
    , m_dialogs(dialogs)
    , m_alerts(alerts)
{
}

DataActions::~DataActions() = default;

void DataActions::exportHistory()
{
    if (std::exchange(m_isBusy, true))
        return;
    begin(Work::exporting, listSize(m_store));
    m_exported = std::make_unique<TemporaryFile>(m_store.exportHistory());
    work.set(Work::none);
    m_dialogs.chooseNewFile(
        datatexts::exportName, whenChosen([this](const auto& target) { copyTo(asJson(target)); }));
}

void DataActions::importHistory()
{
    if (std::exchange(m_isBusy, true))
        return;
    m_dialogs.chooseFile(whenChosen([this](const auto& file) { take(file); }));
}

void DataActions::clearHistory()
{
    if (m_isBusy)
        return;
    m_isBusy = m_alerts.ask(
        datatexts::clearQuestion(), [this, alive = std::weak_ptr(m_isAlive)](AlertAnswer answer) {
            if (alive.expired())
                return;
            end();
            if (answer.isFirst)
                m_store.clearUnpinned();
        });
}

std::function<void(std::optional<std::filesystem::path>)> DataActions::whenChosen(
    std::function<void(const std::filesystem::path&)> then)
{
    return [this, then = std::move(then), alive = std::weak_ptr(m_isAlive)](
               const std::optional<std::filesystem::path>& chosen) {
        if (alive.expired())
            return;
        if (chosen)
            then(*chosen);
        else
            end();
    };
}

void DataActions::begin(Work what, std::int64_t bytes)
{
    if (bytes >= longWork)
        work.set(what);
}

void DataActions::end()
{
    m_copy.reset();
    m_exported.reset();
    m_isBusy = false;
    work.set(Work::none);
}

void DataActions::copyTo(const std::filesystem::path& target)
{
    begin(Work::exporting, sizeOf(m_exported->path()));
    m_copy.emplace(m_loop, m_exported->path(), target, [this] { end(); });
}

void DataActions::take(const std::filesystem::path& file)
{
    // Whatever comes in, the whole history is saved with it.
    begin(Work::importing, sizeOf(file) + listSize(m_store));
    m_store.importHistory(file);
    end();
}

} // namespace korvane
