#include "platform/xdg/PreferencesFile.h"

#include "model/Files.h"
#include "model/Log.h"

#include <cstdint>
#include <system_error>
#include <utility>

namespace korvane {

namespace {
    namespace fs = std::filesystem;

    /// A preferences file has a few kilobytes; what is larger than this is none.
    constexpr std::uintmax_t mostBytes = 4U << 20U;

    struct Content {
        std::string bytes;
        bool isReadable = true; // a file that does not exist reads as an empty one
    };

    Content readContent(const fs::path& file)
    {
        std::error_code error;
        if (fs::status(file, error).type() == fs::file_type::not_found)
            return {};
        if (fs::file_size(file, error) > mostBytes) // a failure tells the largest number
            return { {}, false };
        auto text = readFileText(file, Links::follow);
        return { text.value_or(""), text.has_value() };
    }
} // namespace

PreferencesFile::PreferencesFile(fs::path file, MainLoop& loop, Log& log)
    : m_file(std::move(file))
    , m_log(log)
    , m_watch(m_file, loop, [this] { readAgain(); })
{
    if (!m_watch.isActive())
        m_log.line("Korvane: preferences.json cannot be watched; changes by hand take effect with "
                   "the next change made in the program");
    read();
}

std::optional<PreferenceValue> PreferencesFile::get(std::string_view key) const
{
    if (const auto found = m_unwritten.find(key); found != m_unwritten.end())
        return found->second;
    const auto found = m_table.find(key);
    return found == m_table.end() ? std::nullopt : found->second.value;
}

void PreferencesFile::set(std::string_view key, PreferenceValue value)
{
    put(key, std::move(value));
}

void PreferencesFile::remove(std::string_view key)
{
    put(key, std::nullopt);
}

/// All values as `get` tells them.
PreferencesFile::Values PreferencesFile::values() const
{
    Values values;
    for (const auto& [key, stored] : m_table) {
        if (stored.value)
            values.emplace(key, *stored.value);
    }
    for (const auto& [key, value] : m_unwritten) {
        if (value)
            values.insert_or_assign(key, *value);
        else
            values.erase(key);
    }
    return values;
}

void PreferencesFile::put(std::string_view key, std::optional<PreferenceValue> value)
{
    const auto before = values();
    read(); // what somebody else has just written must not be undone
    const auto stored = m_table.find(key);
    const auto isStored = value ? stored != m_table.end() && stored->second.value == value
                                : stored == m_table.end();
    if (isStored)
        m_unwritten.erase(std::string(key));
    else
        m_unwritten.insert_or_assign(std::string(key), std::move(value));
    if (!m_unwritten.empty())
        write();
    if (values() != before)
        changed();
}

void PreferencesFile::readAgain()
{
    const auto before = values();
    read();
    if (values() != before)
        changed();
}

/// Takes in the file as it is now. The bytes are compared, not the file's times: those are too
/// coarse to tell two quick changes apart. Our own writes are known by their bytes, too.
void PreferencesFile::read()
{
    auto content = readContent(m_file);
    if (content.isReadable && !m_isBad && content.bytes == m_bytes)
        return;
    // An empty file is what a program has just made that is about to write it: no entries, no error.
    auto table = content.bytes.empty() ? PreferencesTable() : parsePreferences(content.bytes);
    const auto isBad = !content.isReadable || !table;
    if (isBad && !(m_isBad && content.bytes == m_bytes))
        m_log.line("Korvane: preferences.json cannot be read; the defaults are used");
    m_isBad = isBad;
    m_bytes = std::move(content.bytes);
    m_table = std::move(table).value_or(PreferencesTable());
}

void PreferencesFile::write()
{
    const auto file = behindLinks(m_file);
    if (m_isBad && !keepBadFile(file))
        return;
    auto table = m_table;
    for (const auto& [key, value] : m_unwritten) {
        if (value)
            table.insert_or_assign(key, StoredPreference { value, {} });
        else
            table.erase(key);
    }
    auto bytes = printPreferences(table);
    AtomicFile replacement(file);
    replacement.write(bytes);
    if (const auto error = replacement.commit()) {
        logWriteFailure(error.message());
        return;
    }
    m_isWriteFailureLogged = false;
    m_bytes = std::move(bytes);
    m_table = std::move(table);
    m_unwritten.clear();
}

bool PreferencesFile::keepBadFile(const fs::path& file)
{
    auto kept = file;
    kept += ".bad";
    std::error_code error;
    fs::rename(file, kept, error);
    if (error)
        logWriteFailure(error.message());
    else
        m_isBad = false;
    return !error;
}

void PreferencesFile::logWriteFailure(const std::string& reason)
{
    if (std::exchange(m_isWriteFailureLogged, true))
        return;
    m_log.line("Korvane: preferences.json cannot be written: " + reason);
}

} // namespace korvane
